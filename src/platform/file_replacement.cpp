// Replacing files whole: every new file is complete on disk before the first old one goes.
#include <algorithm>
#include <filesystem>
#include <optional>
#include <system_error>

#include "platform/failure.h"
#include "platform/file_names.h"
#include "platform/files.h"
#include "platform/files_system.h"
#include "platform/replacement_names.h"
#include "platform/replacement_record.h"

namespace {

namespace fs = std::filesystem;

constexpr int numbersToTry = 100;

struct Replacement {
  std::string path;  // as the caller gave it
  fs::path target;   // what the path's links lead to
  std::optional<WaitingFile> waiting;
  std::optional<WaitingFile> record;  // of a replacement of several
  fs::path previous;                  // the old file's second name while it may have to come back
  bool existed = false;
  bool moved = false;
};

// What broken-off replacements left is finished or goes. A record that nobody holds goes first; the
// old file of a record that stays is still needed.
void tidyBeside(const fs::path& target) {
  std::vector<FoundBeside> all = findBeside(target);
  if (!all.empty() && all.front().kind == Beside::record) {
    finishReplacementsBeside(target);
    all = findBeside(target);
  }
  for (const FoundBeside& found : all) {
    std::error_code unknown;
    const fs::path record = besidePath(target, found.number, Beside::record);
    if (found.kind == Beside::previous && fs::exists(record, unknown)) continue;
    removeIfAbandoned(found.path);
  }
}

// Runs `step`; errors become the Failure that fits the replacement's path.
template <typename Step>
void failingAt(const Replacement& replacement, Step step) {
  try {
    step();
  } catch (const std::system_error& error) {
    throw Failure(failureNumberAt(replacement.path, error.code()));
  }
}

void resolve(Replacement& replacement) {
  replacement.target = behindLinks(systemPath(replacement.path));
  if (!replacement.target.has_filename()) throw Failure(pathFileAccess);
  requireReplaceable(replacement.target);
}

// False if the name is taken.
bool makes(std::optional<WaitingFile>& file, const Replacement& replacement,
           const std::string& number, Beside kind) {
  failingAt(replacement, [&] {
    const fs::path path = besidePath(replacement.target, number, kind);
    if (auto made = WaitingFile::create(path, replacement.target)) file.emplace(std::move(*made));
  });
  return file.has_value();
}

bool makesFilesBeside(std::vector<Replacement>& replacements, const std::string& number) {
  const bool recorded = replacements.size() > 1;
  return std::ranges::all_of(replacements, [&](Replacement& each) {
    return makes(each.waiting, each, number, Beside::waiting) &&
           (!recorded || makes(each.record, each, number, Beside::record));
  });
}

// Gives the replacement's number.
std::string makeFilesBeside(std::vector<Replacement>& replacements) {
  for (int i = 0; i < numbersToTry; ++i) {
    std::string number = freshNumber();
    if (makesFilesBeside(replacements, number)) return number;
    for (Replacement& each : replacements) {
      each.waiting.reset();
      each.record.reset();
    }
  }
  throw Failure(pathFileAccess);
}

// From here on a replacement that is broken off can be finished by others.
void writeRecords(std::vector<Replacement>& replacements, std::span<const FileContent> files) {
  std::vector<ReplacedFile> replaced;
  for (std::size_t i = 0; i < files.size(); ++i) {
    failingAt(replacements[i], [&] {
      const fs::path target = fs::absolute(replacements[i].target);
      replaced.push_back({target, markOfFile(target), markOf(files[i].bytes)});
    });
  }
  const std::string text = recordText(replaced);
  const std::span bytes(reinterpret_cast<const std::uint8_t*>(text.data()), text.size());
  for (Replacement& each : replacements) {
    failingAt(each, [&] { each.record->write(bytes); });
    flushFolder(each.target.parent_path());
  }
}

// Some file systems hold no second names; there the old file is copied.
void keepPrevious(Replacement& replacement, const std::string& number) {
  std::error_code error;
  replacement.existed = fs::exists(replacement.target, error) || error;
  if (!replacement.existed) return;
  replacement.previous = besidePath(replacement.target, number, Beside::previous);
  fs::create_hard_link(replacement.target, replacement.previous, error);
  if (error)
    failingAt(replacement, [&] { fs::copy_file(replacement.target, replacement.previous); });
}

// False if the old file could not be put back; it then stays under its second name.
bool putBack(const Replacement& replacement) noexcept {
  std::error_code error;
  if (!replacement.previous.empty()) {
    fs::rename(replacement.previous, replacement.target, error);
  } else if (!replacement.existed) {
    fs::remove(replacement.target, error);
  }
  return !error;
}

void dropPrevious(const Replacement& replacement) noexcept {
  std::error_code ignored;
  if (!replacement.previous.empty()) fs::remove(replacement.previous, ignored);
}

void moveAll(std::vector<Replacement>& replacements) {
  for (Replacement& replacement : replacements) {
    failingAt(replacement, [&] { replacement.waiting->moveTo(replacement.target); });
    replacement.moved = true;
  }
}

// The records stay where something could not be put back.
void takeBack(std::vector<Replacement>& replacements) noexcept {
  bool all = true;
  for (auto last = replacements.rbegin(); last != replacements.rend(); ++last) {
    const bool back = !last->moved || putBack(*last);
    if (back) dropPrevious(*last);
    all = all && back;
  }
  if (all) return;
  for (Replacement& each : replacements) {
    if (each.record) each.record->leave();
  }
}

void moveAllOrNone(std::vector<Replacement>& replacements, const std::string& number) {
  try {
    for (std::size_t i = 0; i + 1 < replacements.size(); ++i) keepPrevious(replacements[i], number);
    moveAll(replacements);
  } catch (...) {
    takeBack(replacements);
    throw;
  }
  for (const Replacement& replacement : replacements) dropPrevious(replacement);
}

}  // namespace

void replaceFile(const std::string& path, std::span<const std::uint8_t> bytes) {
  const FileContent file{path, bytes};
  replaceFiles({&file, 1});
}

void replaceFiles(std::span<const FileContent> files, const ReplacementSteps& steps) {
  std::vector<Replacement> replacements(files.size());
  for (std::size_t i = 0; i < files.size(); ++i) {
    replacements[i].path = files[i].path;
    failingAt(replacements[i], [&] { resolve(replacements[i]); });
  }
  for (const Replacement& replacement : replacements) tidyBeside(replacement.target);
  for (std::size_t i = 0; steps.before && i < files.size(); ++i) {
    steps.before(files[i], replacements[i].target);
  }
  const std::string number = makeFilesBeside(replacements);
  for (std::size_t i = 0; i < files.size(); ++i) {
    failingAt(replacements[i], [&] { replacements[i].waiting->write(files[i].bytes); });
  }
  if (files.size() > 1) writeRecords(replacements, files);
  if (steps.beforeMoving) steps.beforeMoving();
  moveAllOrNone(replacements, number);
  for (const Replacement& replacement : replacements) flushFolder(replacement.target.parent_path());
}
