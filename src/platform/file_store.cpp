#include "platform/file_store.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <string_view>
#include <system_error>
#include <thread>
#include <tuple>

#include "platform/clock.h"
#include "platform/failure.h"
#include "platform/file_names.h"
#include "platform/replacement_names.h"

namespace {

namespace fs = std::filesystem;

constexpr const char* stateEnding = ".state";
constexpr const char* textEnding = ".txt";
constexpr const char* waitingEnding = ".new";
constexpr const char* lockName = "lock";
constexpr std::size_t whenDigits = 16;
constexpr std::size_t longestText = 65536;    // bytes
constexpr std::int64_t day = 86'400'000'000;  // microseconds

std::string nameOf(const StoredFile& file) {
  const std::string when = std::to_string(file.when);
  return std::string(whenDigits - std::min(when.size(), whenDigits), '0') + when + '-' +
         hex64(file.subject) + '-' + hex64(file.mark.hash) + '-' + std::to_string(file.mark.size);
}

// Reads a number up to the next "-" or the end.
template <class Number>
Number nextNumber(std::string_view& name, int base) {
  Number number = 0;
  const auto end = std::from_chars(name.data(), name.data() + name.size(), number, base).ptr;
  name.remove_prefix(std::min(name.size(), static_cast<std::size_t>(end - name.data()) + 1));
  return number;
}

// Nothing for a name that is none of the store's.
std::optional<StoredFile> fileNamed(const fs::path& path, std::string_view ending) {
  if (path.extension() != ending) return std::nullopt;
  const std::u8string utf8 = path.filename().u8string();
  const std::string whole(utf8.begin(), utf8.end());
  const std::string name = whole.substr(0, whole.size() - ending.size());
  std::string_view rest = name;
  StoredFile file;
  file.when = nextNumber<std::int64_t>(rest, 10);
  file.subject = nextNumber<std::uint64_t>(rest, 16);
  file.mark.hash = nextNumber<std::uint64_t>(rest, 16);
  file.mark.size = nextNumber<std::uint64_t>(rest, 10);
  if (file.when < 0 || nameOf(file) != name) return std::nullopt;
  return file;
}

// A disk may fail once and work again at once; what can be lost here is worth a second try.
template <class Step>
void orAgain(Step step) {
  try {
    step();
  } catch (const std::system_error&) {
    step();
  }
}

// Calls `visit` for each entry of the folder. One whose name can't be read is passed over.
template <class Visit>
void forEachEntry(const fs::path& folder, Visit visit) {
  std::error_code error;
  for (fs::directory_iterator at(folder, error), end; !error && at != end; at.increment(error)) {
    try {
      visit(at->path());
    } catch (const std::system_error&) {
      continue;
    }
  }
}

}  // namespace

FileStore::FileStore(const std::string& folder) : folder_(systemPath(folder)) {}

FileStore FileStore::below(const std::string& name) const {
  FileStore store(*this);
  store.folder_ /= name;
  return store;
}

fs::path FileStore::placeOf(const StoredFile& file, const char* ending) const {
  return folder_ / (nameOf(file) + ending);
}

std::vector<StoredFile> FileStore::files() const {
  std::vector<StoredFile> found;
  forEachEntry(folder_, [&](const fs::path& path) {
    if (const auto file = fileNamed(path, stateEnding)) found.push_back(*file);
  });
  std::ranges::sort(found, {}, [](const StoredFile& file) {
    return std::tuple(file.when, file.subject, file.mark.hash);
  });
  return found;
}

fs::file_time_type FileStore::changed() const noexcept {
  std::error_code missing;
  return fs::last_write_time(folder_, missing);
}

bool FileStore::holds(const StoredFile& file) const noexcept {
  std::error_code error;
  const fs::path path = placeOf(file, stateEnding);
  return fs::is_regular_file(fs::symlink_status(path, error)) &&
         fs::file_size(path, error) == file.mark.size && !error;
}

std::vector<std::uint8_t> FileStore::read(const StoredFile& file) const {
  const std::size_t oneMore = static_cast<std::size_t>(file.mark.size) + 1;
  std::vector<std::uint8_t> bytes;
  try {
    bytes = readRegularFile(placeOf(file, stateEnding), oneMore);
  } catch (const std::system_error& error) {
    throw Failure(failureNumberOf(error.code()));
  }
  if (markOf(bytes) != file.mark) throw Failure(deviceError);
  return bytes;
}

std::string FileStore::text(const StoredFile& file) const {
  try {
    const auto bytes = readRegularFile(placeOf(file, textEnding), longestText);
    return {bytes.begin(), bytes.end()};
  } catch (const std::system_error&) {
    return {};
  }
}

// What is kept is its user's alone, as what it was taken from may be.
void FileStore::makeFolder() const {
  if (!fs::create_directories(folder_)) return;
  std::error_code ignored;
  fs::permissions(folder_, fs::perms::owner_all, ignored);
}

// It comes to disk in its own time: without it a file tells all but what it is a state of.
void FileStore::writeText(const StoredFile& file, const std::string& text) noexcept {
  const fs::path place = placeOf(file, textEnding);
  const std::span bytes(reinterpret_cast<const std::uint8_t*>(text.data()), text.size());
  try {
    orAgain([&] {
      auto waiting = WaitingFile::create(place, place);
      if (!waiting) return;
      waiting->write(bytes, Flush::no);
      waiting->leave();
    });
  } catch (const std::exception&) {
    // The bytes alone are worth keeping.
  }
}

void FileStore::copyIn(const StoredFile& file, std::span<const std::uint8_t> bytes) {
  const fs::path place = placeOf(file, stateEnding);
  orAgain([&] {
    auto waiting = WaitingFile::create(placeOf(file, waitingEnding), place);
    if (!waiting) return;
    waiting->write(bytes);
    waiting->moveTo(place);
  });
}

// What fails leaves nothing.
template <class Step>
void FileStore::keeping(const StoredFile& file, Step step) {
  try {
    makeFolder();
    step();
  } catch (const std::system_error& error) {
    forget(file);
    throw Failure(failureNumberOf(error.code()));
  }
}

void FileStore::keep(const StoredFile& file, const std::string& text,
                     std::span<const std::uint8_t> bytes) {
  keeping(file, [&] {
    writeText(file, text);
    copyIn(file, bytes);
  });
  flush();
}

// A file that has several names may be changed under the others.
void FileStore::keepFile(const StoredFile& file, const std::string& text,
                         std::span<const std::uint8_t> bytes, const fs::path& target) {
  keeping(file, [&] {
    writeText(file, text);
    if (namesOf(target) == 1) {
      std::error_code error;
      fs::create_hard_link(target, placeOf(file, stateEnding), error);
      if (!error) return;
    }
    copyIn(file, bytes);
  });
}

bool FileStore::isSecondName(const StoredFile& file) const noexcept {
  try {
    return namesOf(placeOf(file, stateEnding)) > 1;
  } catch (const std::system_error&) {
    return false;
  }
}

void FileStore::separate(const StoredFile& file, std::span<const std::uint8_t> bytes) {
  if (!isSecondName(file)) return;
  copyIn(file, bytes);
  flush();
}

void FileStore::flush() noexcept { flushFolder(folder_); }

void FileStore::forget(const StoredFile& file) noexcept {
  std::error_code ignored;
  fs::remove(placeOf(file, stateEnding), ignored);
  fs::remove(placeOf(file, textEnding), ignored);
}

// A text alone may belong to a file that another program keeps right now.
void FileStore::sweep() noexcept {
  const std::int64_t now = microsecondsNow();
  try {
    forEachEntry(folder_, [&](const fs::path& path) {
      if (fileNamed(path, waitingEnding)) removeIfAbandoned(path);
      const auto text = fileNamed(path, textEnding);
      if (text && text->when < now - day && !fs::exists(placeOf(*text, stateEnding))) {
        fs::remove(path);
      }
    });
    std::error_code notEmpty;
    fs::remove(folder_, notEmpty);
  } catch (const std::exception&) {
    // It is swept again at the next occasion.
  }
}

// Another program may take a folder without a holder for abandoned, and remove it.
std::optional<HeldFile> FileStore::hold() const noexcept {
  constexpr int tries = 50;
  constexpr std::chrono::milliseconds pause(10);
  try {
    for (int i = 0; i < tries; ++i) {
      makeFolder();
      try {
        if (auto held = HeldFile::alone(folder_ / lockName)) return held;
      } catch (const std::system_error& error) {
        const int number = failureNumberOf(error.code());
        if (number != fileNotFound && number != pathNotFound) return std::nullopt;
      }
      std::this_thread::sleep_for(pause);
    }
  } catch (const std::exception&) {
    // Better unguarded than not at all.
  }
  return std::nullopt;
}

std::optional<HeldFile> FileStore::holdIfAbandoned() const noexcept {
  try {
    return HeldFile::ifAbandoned(folder_ / lockName);
  } catch (const std::exception&) {
    return std::nullopt;
  }
}

void FileStore::removeLock() noexcept {
  try {
    fs::remove(folder_ / lockName);
    sweep();
  } catch (const std::exception&) {
    // Who finds it holds it and removes it.
  }
}

std::vector<std::string> FileStore::folders() const {
  std::vector<std::string> names;
  forEachEntry(folder_, [&](const fs::path& path) {
    if (!fs::is_directory(fs::symlink_status(path))) return;
    const std::u8string name = path.filename().u8string();
    names.emplace_back(name.begin(), name.end());
  });
  return names;
}
