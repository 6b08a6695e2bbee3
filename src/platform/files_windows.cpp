// Files by Win32 calls. A waiting file is open without leave to delete it, which marks it as held.
#define NOMINMAX  // else the header takes std::min away
#include <windows.h>

#include <algorithm>
#include <string>
#include <system_error>
#include <utility>

#include "platform/files_system.h"

namespace {

namespace fs = std::filesystem;

constexpr std::size_t smallestStep = 65536;      // bytes by which a growing file is followed
constexpr std::size_t largestStep = 0x40000000;  // bytes in one call
constexpr std::size_t longestPlainPath = 120;    // leaves room for names beside a file within 260
constexpr const wchar_t* deviceRoot = L"\\\\.\\";
const std::wstring verbatim = L"\\\\?\\";  // what follows is taken as it stands, at any length
constexpr DWORD diskQuotaExceeded = 1295;  // unnamed in some headers
constexpr DWORD keptAttributes = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM |
                                 FILE_ATTRIBUTE_ARCHIVE | FILE_ATTRIBUTE_NOT_CONTENT_INDEXED;
constexpr DWORD shareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

class Handle {
 public:
  explicit Handle(HANDLE handle) : handle_(handle) {}
  ~Handle() {
    if (handle_ != INVALID_HANDLE_VALUE) CloseHandle(handle_);
  }
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;
  HANDLE get() const { return handle_; }

 private:
  HANDLE handle_;
};

// The errors that callers tell apart get their portable names; the rest keep the system's number.
[[noreturn]] void fail(DWORD error) {
  switch (error) {
    case ERROR_FILE_NOT_FOUND:
      throw std::system_error(std::make_error_code(std::errc::no_such_file_or_directory));
    case ERROR_PATH_NOT_FOUND:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
    case ERROR_BAD_DEV_TYPE:
      throw std::system_error(std::make_error_code(std::errc::not_a_directory));
    case ERROR_ACCESS_DENIED:
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_WRITE_PROTECT:
    case ERROR_INVALID_NAME:
      throw std::system_error(std::make_error_code(std::errc::permission_denied));
    case ERROR_NOT_READY:
    case ERROR_INVALID_DRIVE:
    case ERROR_BAD_UNIT:
    case ERROR_DEV_NOT_EXIST:
    case ERROR_NETNAME_DELETED:
    case ERROR_UNEXP_NET_ERR:
      throw std::system_error(std::make_error_code(std::errc::no_such_device));
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
    case diskQuotaExceeded:
      throw std::system_error(std::make_error_code(std::errc::no_space_on_device));
    case ERROR_NOT_ENOUGH_MEMORY:
    case ERROR_OUTOFMEMORY:
      throw std::system_error(std::make_error_code(std::errc::not_enough_memory));
    default:
      throw std::system_error(static_cast<int>(error), std::system_category());
  }
}

void require(bool succeeded) {
  if (!succeeded) fail(GetLastError());
}

// Virus scanners, indexers and synchronisers look at a file right after it was written, and let go
// of it soon. A file that is refused for good has another error and is told at once.
bool isHeldForNow(DWORD error) {
  return error == ERROR_SHARING_VIOLATION || error == ERROR_LOCK_VIOLATION ||
         error == ERROR_USER_MAPPED_FILE;
}

// `succeeds` is tried for about a second while its error `mayPass`.
template <typename Call>
void requirePatiently(Call succeeds, bool (*mayPass)(DWORD error)) {
  constexpr DWORD pause = 20;  // milliseconds
  for (int left = 50; !succeeds(); --left) {
    const DWORD error = GetLastError();
    if (left == 0 || !mayPass(error)) fail(error);
    Sleep(pause);
  }
}

HANDLE toHandle(std::intptr_t value) { return reinterpret_cast<HANDLE>(value); }

const std::intptr_t noHandle = reinterpret_cast<std::intptr_t>(INVALID_HANDLE_VALUE);

HANDLE openRegular(const fs::path& path) {
  if (path.empty()) fail(ERROR_FILE_NOT_FOUND);
  const HANDLE file = CreateFileW(path.c_str(), GENERIC_READ, shareAll, nullptr, OPEN_EXISTING,
                                  FILE_FLAG_SEQUENTIAL_SCAN, nullptr);
  require(file != INVALID_HANDLE_VALUE);
  if (GetFileType(file) == FILE_TYPE_DISK) return file;
  CloseHandle(file);
  fail(ERROR_ACCESS_DENIED);
}

std::size_t readSome(HANDLE file, std::span<std::uint8_t> room) {
  DWORD count = 0;
  const auto wanted = static_cast<DWORD>(std::min(room.size(), largestStep));
  require(ReadFile(file, room.data(), wanted, &count, nullptr) != FALSE);
  return count;
}

// What can't be taken over is left as the folder gives it. A new file is marked for archives alone.
void takeAttributesAndAccess(const fs::path& path, HANDLE file, const fs::path& from) {
  const DWORD attributes = GetFileAttributesW(from.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) return;
  const DWORD kept = attributes & keptAttributes;
  if (kept != FILE_ATTRIBUTE_ARCHIVE) SetFileAttributesW(path.c_str(), kept);
  constexpr SECURITY_INFORMATION part = DACL_SECURITY_INFORMATION;
  constexpr DWORD usualSize = 1024;
  std::vector<std::uint8_t> access(usualSize);
  DWORD size = 0;
  const auto reads = [&] {
    const auto room = static_cast<DWORD>(access.size());
    return GetFileSecurityW(from.c_str(), part, access.data(), room, &size) != FALSE;
  };
  bool read = reads();
  if (!read && size > access.size()) {
    access.resize(size);
    read = reads();
  }
  if (read) SetKernelObjectSecurity(file, part, access.data());
}

// With the current folder before it, separators alike, and without the dots and blanks that the
// system drops at its end.
std::wstring fullPath(const fs::path& path) {
  const DWORD size = GetFullPathNameW(path.c_str(), 0, nullptr, nullptr);
  std::wstring full(size, L'\0');
  full.resize(GetFullPathNameW(path.c_str(), size, full.data(), nullptr));
  return full;
}

bool isDriveLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }

}  // namespace

const char pathSeparator = '\\';

bool isSeparator(char c) { return c == '\\' || c == '/'; }

fs::path callablePath(const fs::path& path) {
  if (path.empty() || path.native().starts_with(verbatim)) return path;
  constexpr std::size_t behindDrive = 2;
  if (path.native().find(L':', behindDrive) != std::wstring::npos) fail(ERROR_INVALID_NAME);
  const std::wstring full = fullPath(path);
  if (full.starts_with(deviceRoot)) fail(ERROR_ACCESS_DENIED);
  if (full.size() < longestPlainPath) return path;
  return full.starts_with(L"\\\\") ? verbatim + (L"UNC" + full.substr(1)) : verbatim + full;
}

bool nameSameEntry(const fs::path& one, const fs::path& other) {
  const std::wstring a = fullPath(one), b = fullPath(other);
  return CompareStringOrdinal(a.c_str(), -1, b.c_str(), -1, TRUE) == CSTR_EQUAL;
}

std::size_t rootLength(std::string_view path) {
  const auto separatorAt = [path](std::size_t i) {
    return i < path.size() && isSeparator(path[i]);
  };
  if (separatorAt(0)) return separatorAt(1) ? 2 : 1;
  const bool drive = path.size() >= 2 && isDriveLetter(path[0]) && path[1] == ':';
  return drive && separatorAt(2) ? 3 : 0;
}

std::vector<std::uint8_t> readRegularFile(const fs::path& path, std::size_t atMost) {
  const Handle file(openRegular(path));
  LARGE_INTEGER size{};
  require(GetFileSizeEx(file.get(), &size) != FALSE);
  // One byte more than the size: the end shows in the second read without a larger buffer.
  std::vector<std::uint8_t> bytes(std::min(static_cast<std::size_t>(size.QuadPart) + 1, atMost));
  std::size_t filled = 0;
  while (filled < atMost) {
    if (filled == bytes.size()) {
      bytes.resize(std::min(atMost, filled + std::max(filled, smallestStep)));
    }
    const std::size_t count = readSome(file.get(), std::span(bytes).subspan(filled));
    if (count == 0) break;
    filled += count;
  }
  bytes.resize(filled);
  return bytes;
}

void requireReadable(const fs::path& path) { const Handle file(openRegular(path)); }

// A link is replaced like any other file: the C++ library knows no links here, and its question
// would cost as much as half a save.
fs::path behindLinks(fs::path path) { return path; }

void requireReplaceable(const fs::path& target) {
  const DWORD attributes = GetFileAttributesW(target.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) {
    const DWORD error = GetLastError();
    if (error != ERROR_FILE_NOT_FOUND) fail(error);
    return;
  }
  if ((attributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_READONLY)) != 0) {
    fail(ERROR_ACCESS_DENIED);
  }
  HANDLE opened = INVALID_HANDLE_VALUE;
  requirePatiently(
      [&] {
        opened = CreateFileW(target.c_str(), GENERIC_WRITE, shareAll, nullptr, OPEN_EXISTING,
                             FILE_ATTRIBUTE_NORMAL, nullptr);
        return opened != INVALID_HANDLE_VALUE;
      },
      isHeldForNow);
  const Handle file(opened);
  if (GetFileType(file.get()) != FILE_TYPE_DISK) fail(ERROR_ACCESS_DENIED);
}

WaitingFile::WaitingFile(fs::path path, std::intptr_t handle)
    : path_(std::move(path)), handle_(handle) {}

WaitingFile::WaitingFile(WaitingFile&& other) noexcept
    : path_(std::move(other.path_)), handle_(std::exchange(other.handle_, noHandle)) {
  other.path_.clear();
}

WaitingFile::~WaitingFile() {
  if (handle_ != noHandle) CloseHandle(toHandle(handle_));
  if (!path_.empty()) DeleteFileW(path_.c_str());
}

std::optional<WaitingFile> WaitingFile::create(const fs::path& path, const fs::path& target) {
  const HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE | WRITE_DAC, FILE_SHARE_READ, nullptr,
                                  CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE && GetLastError() == ERROR_FILE_EXISTS) return std::nullopt;
  require(file != INVALID_HANDLE_VALUE);
  WaitingFile waiting(path, reinterpret_cast<std::intptr_t>(file));
  takeAttributesAndAccess(path, file, target);
  return waiting;
}

void WaitingFile::write(std::span<const std::uint8_t> bytes, Flush flush) {
  while (!bytes.empty()) {
    DWORD count = 0;
    const auto wanted = static_cast<DWORD>(std::min(bytes.size(), largestStep));
    require(WriteFile(toHandle(handle_), bytes.data(), wanted, &count, nullptr) != FALSE);
    if (count == 0) fail(ERROR_WRITE_FAULT);
    bytes = bytes.subspan(count);
  }
  require(flush == Flush::no || FlushFileBuffers(toHandle(handle_)) != FALSE);
}

// An open file can't be moved here.
void WaitingFile::moveTo(const fs::path& target) {
  CloseHandle(toHandle(std::exchange(handle_, noHandle)));
  constexpr DWORD how = MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH;
  // A held target answers as a forbidden one, but requireReplaceable has found it allowed.
  const auto mayPass = [](DWORD error) {
    return isHeldForNow(error) || error == ERROR_ACCESS_DENIED;
  };
  requirePatiently([&] { return MoveFileExW(path_.c_str(), target.c_str(), how) != FALSE; },
                   mayPass);
  path_.clear();
}

// MOVEFILE_WRITE_THROUGH has done it.
// The C++ library tells one of every file here.
std::uintmax_t namesOf(const fs::path& path) {
  const Handle file(openRegular(path));
  BY_HANDLE_FILE_INFORMATION told;
  require(GetFileInformationByHandle(file.get(), &told) != FALSE);
  return told.nNumberOfLinks;
}

void flushFolder(const fs::path&) noexcept {}

void WaitingFile::leave() noexcept {
  path_.clear();
  CloseHandle(toHandle(std::exchange(handle_, noHandle)));
}

// Open without leave to read it: a second one can't hold it too. It may be deleted meanwhile.
std::optional<HeldFile> HeldFile::ifAbandoned(const fs::path& path) noexcept {
  const HANDLE file = CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_DELETE, nullptr,
                                  OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) return std::nullopt;
  return HeldFile(reinterpret_cast<std::intptr_t>(file));
}

std::optional<HeldFile> HeldFile::alone(const fs::path& path) {
  const HANDLE file = CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_DELETE,
                                  nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE && isHeldForNow(GetLastError())) return std::nullopt;
  require(file != INVALID_HANDLE_VALUE);
  return HeldFile(reinterpret_cast<std::intptr_t>(file));
}

HeldFile::HeldFile(HeldFile&& other) noexcept : handle_(std::exchange(other.handle_, noHandle)) {}

HeldFile::~HeldFile() {
  if (handle_ != noHandle) CloseHandle(toHandle(handle_));
}

void removeIfAbandoned(const fs::path& path) noexcept { DeleteFileW(path.c_str()); }
