// Files by POSIX calls; the lock that marks a waiting file as held is flock.
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <system_error>
#include <utility>

#include "platform/files_system.h"

namespace {

namespace fs = std::filesystem;

constexpr mode_t anyMayWrite = S_IWUSR | S_IWGRP | S_IWOTH;
constexpr mode_t plainPermissions = S_IRWXU | S_IRWXG | S_IRWXO;
constexpr mode_t allPermissions = plainPermissions | S_ISUID | S_ISGID | S_ISVTX;
constexpr mode_t newFile = S_IRUSR | S_IWUSR | S_IRGRP | S_IWGRP | S_IROTH | S_IWOTH;
constexpr mode_t ownerOnly = S_IRUSR | S_IWUSR;
constexpr std::size_t smallestStep = 65536;      // bytes by which a growing file is followed
constexpr std::size_t largestStep = 0x40000000;  // bytes in one call; some systems refuse more
constexpr int longestChainOfLinks = 40;          // as the system itself allows

class Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) {}
  ~Descriptor() {
    if (number_ >= 0) close(number_);
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  int number() const { return number_; }

 private:
  int number_;
};

[[noreturn]] void fail(int error) { throw std::system_error(error, std::generic_category()); }

void require(bool succeeded) {
  if (!succeeded) fail(errno);
}

void requireRegular(const struct stat& status) {
  if (S_ISDIR(status.st_mode)) fail(EISDIR);
  if (!S_ISREG(status.st_mode)) fail(EACCES);
}

// A device may act on being opened, and a pipe may wait: hence the look before, and O_NONBLOCK for
// what takes the name meanwhile.
int openRegular(const fs::path& path) {
  struct stat status {};
  require(stat(path.c_str(), &status) == 0);
  requireRegular(status);
  const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
  require(file >= 0);
  return file;
}

std::size_t regularSize(int file) {
  struct stat status {};
  require(fstat(file, &status) == 0);
  requireRegular(status);
  return static_cast<std::size_t>(status.st_size);
}

std::size_t readSome(int file, std::span<std::uint8_t> room) {
  while (true) {
    const ssize_t count = read(file, room.data(), std::min(room.size(), largestStep));
    if (count >= 0) return static_cast<std::size_t>(count);
    if (errno != EINTR) fail(errno);
  }
}

void writeAll(int file, std::span<const std::uint8_t> bytes) {
  while (!bytes.empty()) {
    const ssize_t count = ::write(file, bytes.data(), std::min(bytes.size(), largestStep));
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) fail(count < 0 ? errno : EIO);
    bytes = bytes.subspan(static_cast<std::size_t>(count));
  }
}

// False if it was interrupted: what was written may be lost then, and a second flush wouldn't tell.
bool flushed(int file) {
  if (fsync(file) == 0) return true;
  if (errno == EINVAL || errno == ENOTSUP) return true;  // no disk behind this file system
  if (errno != EINTR) fail(errno);
  return false;
}

// False if a removal of abandoned files came between making the file and holding it. A file system
// without locks lets nobody else hold it either.
bool hold(int file) {
  if (flock(file, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) return false;
  struct stat status {};
  require(fstat(file, &status) == 0);
  return status.st_nlink > 0;
}

void takeOwnerAndPermissions(int file, const struct stat& from) {
  struct stat own {};
  require(fstat(file, &own) == 0);
  const bool same = own.st_uid == from.st_uid && own.st_gid == from.st_gid;
  const bool owned = same || fchown(file, from.st_uid, from.st_gid) == 0;
  const bool grouped = owned || fchown(file, static_cast<uid_t>(-1), from.st_gid) == 0;
  // Rights to run as the owner must not pass to another one, nor the group's rights to another.
  mode_t wanted = from.st_mode & (owned ? allPermissions : plainPermissions);
  if (!grouped) wanted &= ~static_cast<mode_t>(S_IRWXG) | (wanted & S_IRWXO) << 3;
  if ((own.st_mode & allPermissions) != wanted) require(fchmod(file, wanted) == 0);
}

}  // namespace

const char pathSeparator = '/';

bool isSeparator(char c) { return c == '/'; }

fs::path callablePath(const fs::path& path) { return path; }

bool nameSameEntry(const fs::path& one, const fs::path& other) { return one == other; }

std::size_t rootLength(std::string_view path) { return path.starts_with('/') ? 1 : 0; }

std::vector<std::uint8_t> readRegularFile(const fs::path& path, std::size_t atMost) {
  const Descriptor file(openRegular(path));
  // One byte more than the size: the end shows in the second read without a larger buffer.
  std::vector<std::uint8_t> bytes(std::min(regularSize(file.number()) + 1, atMost));
  std::size_t filled = 0;
  while (filled < atMost) {
    if (filled == bytes.size()) {
      bytes.resize(std::min(atMost, filled + std::max(filled, smallestStep)));
    }
    const std::size_t count = readSome(file.number(), std::span(bytes).subspan(filled));
    if (count == 0) break;
    filled += count;
  }
  bytes.resize(filled);
  return bytes;
}

void requireReadable(const fs::path& path) {
  const Descriptor file(openRegular(path));
  regularSize(file.number());
}

fs::path behindLinks(fs::path path) {
  for (int i = 0; i < longestChainOfLinks; ++i) {
    std::error_code missing;
    if (!fs::is_symlink(fs::symlink_status(path, missing))) return path;
    path = path.parent_path() / fs::read_symlink(path);
  }
  throw std::system_error(std::make_error_code(std::errc::too_many_symbolic_link_levels));
}

void requireReplaceable(const fs::path& target) {
  struct stat status {};
  if (stat(target.c_str(), &status) != 0) {
    if (errno != ENOENT) fail(errno);
    return;
  }
  requireRegular(status);
  // Who may write anything all the same doesn't overrule a file that was made read-only.
  if ((status.st_mode & anyMayWrite) == 0) fail(EACCES);
  require(faccessat(AT_FDCWD, target.c_str(), W_OK, AT_EACCESS) == 0);
}

WaitingFile::WaitingFile(fs::path path, std::intptr_t handle)
    : path_(std::move(path)), handle_(handle) {}

WaitingFile::WaitingFile(WaitingFile&& other) noexcept
    : path_(std::move(other.path_)), handle_(std::exchange(other.handle_, -1)) {
  other.path_.clear();
}

WaitingFile::~WaitingFile() {
  if (!path_.empty()) unlink(path_.c_str());
  if (handle_ >= 0) close(static_cast<int>(handle_));
}

std::optional<WaitingFile> WaitingFile::create(const fs::path& path, const fs::path& target) {
  struct stat status {};
  const bool replaces = stat(target.c_str(), &status) == 0;
  require(replaces || errno == ENOENT);
  const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW,
                        replaces ? ownerOnly : newFile);
  if (file < 0 && errno == EEXIST) return std::nullopt;
  require(file >= 0);
  WaitingFile waiting(path, file);
  if (!hold(file)) return std::nullopt;
  if (replaces) takeOwnerAndPermissions(file, status);
  return waiting;
}

void WaitingFile::write(std::span<const std::uint8_t> bytes, Flush flush) {
  const int file = static_cast<int>(handle_);
  do {
    require(lseek(file, 0, SEEK_SET) == 0);
    writeAll(file, bytes);
  } while (flush == Flush::yes && !flushed(file));
}

void WaitingFile::moveTo(const fs::path& target) {
  require(rename(path_.c_str(), target.c_str()) == 0);
  path_.clear();
  close(static_cast<int>(std::exchange(handle_, -1)));
}

std::uintmax_t namesOf(const fs::path& path) { return fs::hard_link_count(path); }

void flushFolder(const fs::path& folder) noexcept {
  const char* const name = folder.empty() ? "." : folder.c_str();
  const Descriptor opened(open(name, O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (opened.number() >= 0) fsync(opened.number());
}

void WaitingFile::leave() noexcept {
  path_.clear();
  close(static_cast<int>(std::exchange(handle_, -1)));
}

std::optional<HeldFile> HeldFile::ifAbandoned(const fs::path& path) noexcept {
  const int file = open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
  if (file < 0) return std::nullopt;
  HeldFile held(file);
  struct stat status {};
  const bool regular = fstat(file, &status) == 0 && S_ISREG(status.st_mode);
  if (!regular || flock(file, LOCK_EX | LOCK_NB) != 0) return std::nullopt;
  return held;
}

std::optional<HeldFile> HeldFile::alone(const fs::path& path) {
  constexpr int how = O_RDWR | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC;
  const int file = open(path.c_str(), how, ownerOnly);
  require(file >= 0);
  HeldFile held(file);
  if (!hold(file)) return std::nullopt;
  return held;
}

HeldFile::HeldFile(HeldFile&& other) noexcept : handle_(std::exchange(other.handle_, -1)) {}

HeldFile::~HeldFile() {
  if (handle_ >= 0) close(static_cast<int>(handle_));
}

void removeIfAbandoned(const fs::path& path) noexcept {
  if (HeldFile::ifAbandoned(path)) unlink(path.c_str());
}
