// What files.cpp and file_replacement.cpp need from the operating system. Errors leave as
// std::system_error; the callers turn them into Failures.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

// The character between folders, and whether `c` counts as one.
extern const char pathSeparator;
bool isSeparator(char c);

// `path` in the form in which calls take it at any length. Throws for a name that leads to
// something else than a file of that name: a device, a second stream of another file.
std::filesystem::path callablePath(const std::filesystem::path& path);

// Whether two canonical paths name one entry of a folder, be it there or not.
bool nameSameEntry(const std::filesystem::path& one, const std::filesystem::path& other);

// How many characters of `path` name its root; 0 for a relative path.
std::size_t rootLength(std::string_view path);

// The first bytes of a regular file, at most `atMost`; anything that is no regular file is refused.
std::vector<std::uint8_t> readRegularFile(const std::filesystem::path& path, std::size_t atMost);

// Throws unless `path` opens as a regular file for reading.
void requireReadable(const std::filesystem::path& path);

// The file that a chain of links leads to: replacing it leaves the links in place.
std::filesystem::path behindLinks(std::filesystem::path path);

// How many names the file has.
std::uintmax_t namesOf(const std::filesystem::path& path);

// Throws if `target` is there but is no regular file or may not be written.
void requireReplaceable(const std::filesystem::path& target);

enum class Flush { no, yes };

// A new file that waits beside its target. It goes with its record unless it was moved; while it
// is open, removeIfAbandoned leaves it alone.
class WaitingFile {
 public:
  // Makes `path`, with the permissions and, where allowed, the owner of `target` if that is there.
  // Nothing if the name is taken.
  static std::optional<WaitingFile> create(const std::filesystem::path& path,
                                           const std::filesystem::path& target);
  WaitingFile(WaitingFile&& other) noexcept;
  WaitingFile& operator=(WaitingFile&&) = delete;
  ~WaitingFile();

  // Writes all of it and returns when it is on disk, or may come there later.
  void write(std::span<const std::uint8_t> bytes, Flush flush = Flush::yes);
  // Takes the place of `target`, at once.
  void moveTo(const std::filesystem::path& target);
  // Lets go of the file and leaves it where it is.
  void leave() noexcept;

 private:
  WaitingFile(std::filesystem::path path, std::intptr_t handle);

  std::filesystem::path path_;  // empty once moved
  std::intptr_t handle_;
};

// A file left by a process that ended; while it is held here, others leave it alone.
class HeldFile {
 public:
  // Nothing if it isn't there, is no regular file or is held by a living process.
  static std::optional<HeldFile> ifAbandoned(const std::filesystem::path& path) noexcept;
  // Holds the file as long as this stands, and makes it if it isn't there; nothing while another
  // one holds it. Throws where it can't be made or opened.
  static std::optional<HeldFile> alone(const std::filesystem::path& path);
  HeldFile(HeldFile&& other) noexcept;
  HeldFile& operator=(HeldFile&&) = delete;
  ~HeldFile();

 private:
  explicit HeldFile(std::intptr_t handle) : handle_(handle) {}

  std::intptr_t handle_;
};

// Brings a folder's names to disk, as far as the system can. What was renamed stands already, so
// that an error here takes nothing back and is not told.
void flushFolder(const std::filesystem::path& folder) noexcept;

// Removes a waiting file that no living process holds. Errors leave it where it is.
void removeIfAbandoned(const std::filesystem::path& path) noexcept;
