// What lies beside a file while it is replaced, known by its name: a dot, the head of the target's
// name, that name's hash, a number that is one replacement's own, and the kind.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

enum class Beside { record, waiting, previous };

struct FoundBeside {
  std::filesystem::path path;
  std::string number;
  Beside kind;
};

constexpr std::uint64_t fnvOffset = 0xCBF29CE484222325;
constexpr std::uint64_t fnvPrime = 0x100000001B3;
// FNV-1a.
std::uint64_t hashOf(std::string_view text);

// 16 hexadecimal digits.
std::string hex64(std::uint64_t value);

// A number that no other replacement has, as text.
std::string freshNumber();

std::filesystem::path besidePath(const std::filesystem::path& target, const std::string& number,
                                 Beside kind);

// All that lies beside `target`, records first. A folder that can't be listed has nothing.
std::vector<FoundBeside> findBeside(const std::filesystem::path& target);
