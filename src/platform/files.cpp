#include "platform/files.h"

#include <algorithm>
#include <chrono>
#include <exception>
#include <filesystem>
#include <system_error>

#include "platform/failure.h"
#include "platform/file_names.h"
#include "platform/files_system.h"

namespace {

std::filesystem::path unchecked(std::string_view path) {
  return std::filesystem::path(std::u8string(path.begin(), path.end()));
}

}  // namespace

std::filesystem::path systemPath(std::string_view path) {
  if (path.find('\0') != std::string_view::npos) {
    throw std::system_error(std::make_error_code(std::errc::no_such_file_or_directory));
  }
  return callablePath(unchecked(path));
}

int failureNumberAt(const std::string& path, std::error_code error) {
  const int number = failureNumberOf(error);
  const std::string folder = folderOf(path);
  if (number != fileNotFound || folder.empty()) return number;
  std::error_code unknown;
  const bool present = std::filesystem::exists(unchecked(folder), unknown);
  return present || unknown ? number : pathNotFound;
}

std::vector<std::uint8_t> readFile(const std::string& path, std::size_t atMost) {
  try {
    return readRegularFile(systemPath(path), atMost);
  } catch (const std::system_error& error) {
    throw Failure(failureNumberAt(path, error.code()));
  }
}

std::uintmax_t fileSize(const std::string& path) {
  try {
    requireReadable(systemPath(path));
    return std::filesystem::file_size(systemPath(path));
  } catch (const std::system_error& error) {
    throw Failure(failureNumberAt(path, error.code()));
  }
}

FileStamp fileStamp(const std::string& path) {
  try {
    const std::filesystem::path file = systemPath(path);
    const auto written = std::chrono::file_clock::to_sys(std::filesystem::last_write_time(file));
    const auto since1970 =
        std::chrono::duration_cast<std::chrono::nanoseconds>(written.time_since_epoch());
    return {std::filesystem::file_size(file), since1970.count()};
  } catch (const std::system_error& error) {
    throw Failure(failureNumberAt(path, error.code()));
  }
}

bool fileExists(std::string path) noexcept {
  if (!path.empty() && (path.back() == '\\' || path.back() == '/')) path.pop_back();
  if (path.empty()) return false;
  try {
    requireReadable(systemPath(path));
    return true;
  } catch (...) {
    return false;
  }
}

std::string fileNameOf(std::string_view path) {
  const std::size_t last = path.find_last_of("\\/");
  return std::string(last == std::string_view::npos ? path : path.substr(last + 1));
}

std::string fullPath(const std::string& path) {
  try {
    const auto full = std::filesystem::absolute(unchecked(path)).lexically_normal().u8string();
    return {full.begin(), full.end()};
  } catch (const std::exception&) {
    return path;
  }
}

bool nameSameFile(const std::string& one, const std::string& other) noexcept {
  try {
    const auto a = std::filesystem::absolute(systemPath(one));
    const auto b = std::filesystem::absolute(systemPath(other));
    std::error_code missing;
    return std::filesystem::equivalent(a, b, missing) ||
           nameSameEntry(std::filesystem::weakly_canonical(a),
                         std::filesystem::weakly_canonical(b));
  } catch (const std::exception&) {
    return one == other;
  }
}

std::string folderOf(std::string_view path) {
  std::size_t end = path.size();
  while (end > 0 && !isSeparator(path[end - 1])) --end;
  const std::size_t withoutSeparator = end > 0 ? end - 1 : 0;
  return std::string(path.substr(0, std::max(withoutSeparator, rootLength(path))));
}

std::string joinPath(std::string_view folder, std::string_view name) {
  if (folder.empty() || isAbsolutePath(name)) return std::string(name);
  std::string path(folder);
  if (!isSeparator(path.back())) path += pathSeparator;
  return path.append(name);
}

bool isAbsolutePath(std::string_view path) { return rootLength(path) > 0; }
