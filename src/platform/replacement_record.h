// The record of a replacement of several files: as long as it lies beside a target, the replacement
// goes on or was broken off, and who finds it can complete it or take it back.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <vector>

// Which content a file has. The hash takes eight bytes at a time, the low one first, then the rest
// one by one: it begins with FNV's offset; each is put in by exclusive or, multiplied by FNV's
// prime, and the result turned by half its length. So one change alone is never missed.
struct ContentMark {
  std::uint64_t size = 0;
  std::uint64_t hash = 0;
  bool operator==(const ContentMark&) const = default;
};

struct ReplacedFile {
  std::filesystem::path target;
  std::optional<ContentMark> before;  // nothing: there was no file
  ContentMark after;
};

ContentMark markOf(std::span<const std::uint8_t> bytes);

// Nothing if there is no such file. Throws std::system_error for one that can't be read.
std::optional<ContentMark> markOfFile(const std::filesystem::path& path);

std::string recordText(std::span<const ReplacedFile> files);

// Empty for what is no whole record.
std::vector<ReplacedFile> parseRecord(const std::string& text);

// Completes each replacement that was broken off with `target` among its files, or takes it back
// where its new files are gone, and removes what it left. Files are renamed only over targets that
// are as the replacement left them; what has changed meanwhile stays, and so does everything while
// the replacing process lives. Never throws.
void finishReplacementsBeside(const std::filesystem::path& target) noexcept;
