// A folder that keeps whole files, each with a small text beside it. A file's name tells when it
// came, what it is a state of, its checksum and its size; what stands there under other names is
// left alone. Several programs may use one folder at once. Errors are Failures.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "platform/files_system.h"
#include "platform/replacement_record.h"

struct StoredFile {
  std::int64_t when = 0;      // microseconds since 1970
  std::uint64_t subject = 0;  // files of one subject are states of one thing
  ContentMark mark;           // of its bytes
  bool operator==(const StoredFile&) const = default;
};

class FileStore {
 public:
  // The folder is made when the first file comes.
  explicit FileStore(const std::string& folder);
  FileStore below(const std::string& name) const;
  const std::filesystem::path& folder() const { return folder_; }

  // All of them by their names alone, the oldest first; none from a folder that can't be listed.
  std::vector<StoredFile> files() const;
  // When something last came or went.
  std::filesystem::file_time_type changed() const noexcept;
  // Whether a file of that size stands there.
  bool holds(const StoredFile& file) const noexcept;
  // Its bytes. Fails with deviceError when they are not those that its name tells.
  std::vector<std::uint8_t> read(const StoredFile& file) const;
  // The text beside it, "" where none can be read.
  std::string text(const StoredFile& file) const;

  // Keeps `bytes`, on disk when it returns.
  void keep(const StoredFile& file, const std::string& text, std::span<const std::uint8_t> bytes);
  // Whether a file here is still a second name of another one; it can become a file of its own.
  bool isSecondName(const StoredFile& file) const noexcept;
  void separate(const StoredFile& file, std::span<const std::uint8_t> bytes);
  // Keeps the bytes of `target`, whose name is about to be taken by another file: the file system
  // gives it a second name here where it can, else it is copied. `flush` brings the name to disk.
  void keepFile(const StoredFile& file, const std::string& text,
                std::span<const std::uint8_t> bytes, const std::filesystem::path& target);
  void flush() noexcept;
  void forget(const StoredFile& file) noexcept;
  // Removes what broken-off keeping left, and the folder if it is empty then.
  void sweep() noexcept;

  // Held by one program at a time, which waits for it half a second at most; nothing after that.
  std::optional<HeldFile> hold() const noexcept;
  // Nothing unless a program held it that is no more.
  std::optional<HeldFile> holdIfAbandoned() const noexcept;
  // Ends what `hold` began, when nobody holds it any more.
  void removeLock() noexcept;
  // The names of the folders in it.
  std::vector<std::string> folders() const;

 private:
  std::filesystem::path placeOf(const StoredFile& file, const char* ending) const;
  void makeFolder() const;
  void writeText(const StoredFile& file, const std::string& text) noexcept;
  template <class Step>
  void keeping(const StoredFile& file, Step step);
  void copyIn(const StoredFile& file, std::span<const std::uint8_t> bytes);

  std::filesystem::path folder_;
};
