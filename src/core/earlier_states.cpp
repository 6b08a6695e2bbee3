#include "core/earlier_states.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <future>
#include <map>
#include <numeric>
#include <sstream>
#include <utility>

#include "controls/desktop.h"
#include "core/editor_state.h"
#include "core/notices.h"
#include "platform/clock.h"
#include "platform/failure.h"
#include "platform/replacement_names.h"

namespace {

namespace fs = std::filesystem;

constexpr const char* noticeSubject = "earlier states";
constexpr const char* title = "ZELKOVA earlier state 1";
constexpr const char* pathKey = "\npath ";
constexpr std::array<const char*, 3> kindNames{"overwritten", "given up", "unfinished"};
constexpr const char* layoutKey = "\nlayout ";
constexpr std::array<const char*, 3> formNames{"raw", "hex", "srec"};
constexpr std::int64_t latestMoment = 9'999'999'999'999'999;  // that a name can tell

bool told = false;

std::string layoutText(const std::optional<StateLayout>& layout) {
  if (!layout) return {};
  return layoutKey + std::string(formNames[static_cast<std::size_t>(layout->form)]) + ' ' +
         std::to_string(layout->base);
}

// What isn't one gives a text of its own that isn't the record's.
std::optional<StateLayout> layoutIn(const std::string& text) {
  const std::size_t key = text.find(layoutKey);
  if (key == std::string::npos) return std::nullopt;
  std::istringstream words(text.substr(key + std::string_view(layoutKey).size()));
  std::string name;
  StateLayout layout{ImageFileForm::raw, 0};
  words >> name >> layout.base;
  const auto form = std::ranges::find(formNames, name);
  if (form == formNames.end()) return std::nullopt;
  layout.form = static_cast<ImageFileForm>(form - formNames.begin());
  return layout;
}

// Runs `step`; what fails in it is told once and stops nothing.
template <class Step>
void keeping(Step step) noexcept {
  const int failure = trapFailure(step);
  if (failure != 0) trapFailure([failure] { tellStatesNotKept(failure); });
}

bool isOver(std::size_t count, std::uint64_t bytes) {
  return count > mostStates || bytes > mostStateBytes;
}

std::uint64_t bytesIn(const std::vector<StoredFile>& files) {
  return std::accumulate(
      files.begin(), files.end(), std::uint64_t{0},
      [](std::uint64_t sum, const StoredFile& file) { return sum + file.mark.size; });
}

// What stands in a store, as it was when the folder last changed.
struct Listing {
  fs::path folder;
  fs::file_time_type changed;
  std::vector<StoredFile> files;
};

Listing listed;
std::future<Listing> clearing;

Listing listingOf(const FileStore& store, std::vector<StoredFile> files) {
  return {store.folder(), store.changed(), std::move(files)};
}

// What a path keeps for ever: its first state of all, the first that stood in its file before a
// save of ours, and the newest.
struct Ends {
  std::int64_t first;
  std::int64_t original = -1;
  std::int64_t newest = -1;
  bool keep(std::int64_t when) const { return when == first || when == original || when == newest; }
};

std::map<std::uint64_t, Ends> endsOf(const FileStore& store, const std::vector<StoredFile>& files) {
  std::map<std::uint64_t, Ends> all;
  for (const StoredFile& file : files) {
    Ends& ends = all.try_emplace(file.subject, Ends{file.when}).first->second;
    ends.newest = file.when;
    if (ends.original >= 0) continue;
    const auto record = recordIn(store.text(file), file);
    if (record && record->kind == StateKind::overwritten) ends.original = file.when;
  }
  return all;
}

// A name may tell any size: what doesn't stand there as told neither counts nor goes.
Listing dropOldest(FileStore store, std::vector<StoredFile> files) {
  std::erase_if(files, [&](const StoredFile& file) { return !store.holds(file); });
  const auto ends = endsOf(store, files);
  std::size_t count = files.size();
  std::uint64_t bytes = bytesIn(files);
  std::erase_if(files, [&](const StoredFile& file) {
    if (!isOver(count, bytes) || ends.at(file.subject).keep(file.when)) return false;
    store.forget(file);
    --count;
    bytes -= file.mark.size;
    return true;
  });
  return listingOf(store, std::move(files));
}

// Listed anew only when the folder was changed by others.
void list(const FileStore& store) {
  finishEarlierStates();
  if (listed.folder == store.folder() && listed.changed == store.changed()) return;
  listed = listingOf(store, store.files());
}

bool isKept(const FileStore& store, const StoredFile& file, std::span<const std::uint8_t> bytes) {
  bool same = false;
  trapFailure([&] { same = std::ranges::equal(store.read(file), bytes); });
  return same;
}

// One state more, by `keepAs`, unless its bytes are those of the path's newest one.
template <class Keep>
void addState(FileStore& store, EarlierState state, std::span<const std::uint8_t> bytes,
              Keep keepAs) {
  StoredFile& file = state.file;
  list(store);
  const auto newest =
      std::find_if(listed.files.rbegin(), listed.files.rend(),
                   [&](const StoredFile& each) { return each.subject == file.subject; });
  if (newest != listed.files.rend()) {
    if (newest->mark == file.mark && isKept(store, *newest, bytes)) return;
    file.when = std::max(file.when, std::min(newest->when + 1, latestMoment));
  }
  keepAs(state);
  listed.files.push_back(file);
  listed.changed = store.changed();
}

// Once what the user waits for is done: both would wait for one folder.
void clear(const FileStore& store) {
  if (clearing.valid() || listed.folder != store.folder()) return;
  if (!isOver(listed.files.size(), bytesIn(listed.files))) return;
  clearing = std::async(std::launch::async, dropOldest, store, listed.files);
}

// The image's own file holds it as it was loaded or last saved.
StateRecord recordOf(const std::string& path) {
  StateRecord record{fullPath(path)};
  if (path == editorState.imagePath) record.layout = layoutOfImage();
  return record;
}

// Keeps what stands at the targets of one replacement. The store is held until it is through, so
// that two programs which save over one file at the same moment lose neither's bytes.
class Keeper {
 public:
  void before(const FileContent& file, const fs::path& target) noexcept {
    keeping([&] {
      targets_.push_back({file, target, lastWrite(target)});
      keep(targets_.back());
    });
  }

  // Nothing was replaced: the files in their places go on being written by others.
  void stopped() noexcept {
    for (const auto& [file, bytes] : kept_) {
      keeping([&, &file = file, &bytes = bytes] { store_.separate(file, bytes); });
    }
  }

  // Another program may have written there meanwhile.
  void beforeMoving() noexcept {
    keeping([&] {
      for (const Target& each : targets_) {
        if (lastWrite(each.path) != each.written) keep(each);
      }
    });
    if (!kept_.empty()) store_.flush();
  }

 private:
  struct Target {
    FileContent file;
    fs::path path;
    fs::file_time_type written;
  };

  static fs::file_time_type lastWrite(const fs::path& path) {
    std::error_code missing;
    return fs::last_write_time(path, missing);
  }

  void keep(const Target& target) {
    std::vector<std::uint8_t> bytes;
    const auto read = [&] { bytes = readFile(target.file.path); };
    int missing = trapFailure(read);
    if (missing == fileNotFound || missing == pathNotFound) return;
    if (missing != 0) missing = trapFailure(read);
    if (missing != 0) throw Failure(missing);
    if (std::ranges::equal(bytes, target.file.bytes)) return;
    const EarlierState state = newState(recordOf(target.file.path), bytes);
    addState(store_, state, bytes, [&](const EarlierState& added) {
      store_.keepFile(added.file, textOf(added), bytes, target.path);
      kept_.emplace_back(added.file, bytes);
    });
  }

  FileStore store_ = stateStore();
  std::optional<HeldFile> held_ = store_.hold();
  std::vector<Target> targets_;
  std::vector<std::pair<StoredFile, std::vector<std::uint8_t>>> kept_;
};

}  // namespace

bool hasEarlierStates() { return hasDesktop() && !desktop().dataFolder().empty(); }

FileStore stateStore() { return FileStore(joinPath(desktop().dataFolder(), "earlier states")); }

std::vector<EarlierState> earlierStates() {
  std::vector<EarlierState> states;
  if (!hasEarlierStates()) return states;
  const FileStore store = stateStore();
  for (const StoredFile& file : store.files()) {
    if (store.holds(file)) states.push_back({file, recordIn(store.text(file), file)});
  }
  std::ranges::reverse(states);
  return states;
}

std::vector<std::uint8_t> bytesOf(const EarlierState& state) {
  return stateStore().read(state.file);
}

void forgetState(const EarlierState& state) { stateStore().forget(state.file); }

void separateStates() noexcept {
  trapFailure([] {
    constexpr std::ptrdiff_t newest = 16;  // what is older was looked at by former programs
    FileStore store = stateStore();
    std::vector<StoredFile> files = store.files();
    files.erase(files.begin(), files.end() - std::min(newest, std::ssize(files)));
    std::erase_if(files, [&](const StoredFile& file) { return !store.isSecondName(file); });
    const auto held = files.empty() ? std::nullopt : store.hold();
    if (!held) return;
    for (const StoredFile& file : files) {
      trapFailure([&] { store.separate(file, store.read(file)); });
    }
  });
}

void replaceUserFile(const std::string& path, std::span<const std::uint8_t> bytes) {
  const FileContent file{path, bytes};
  replaceUserFiles({&file, 1});
}

void replaceUserFiles(std::span<const FileContent> files) {
  if (!hasEarlierStates()) return replaceFiles(files);
  Keeper keeper;
  const auto before = [&](const FileContent& file, const fs::path& target) {
    keeper.before(file, target);
  };
  try {
    replaceFiles(files, {before, [&] { keeper.beforeMoving(); }});
  } catch (...) {
    keeper.stopped();
    throw;
  }
  keeping([] { clear(stateStore()); });
}

void keepState(const EarlierState& state, std::span<const std::uint8_t> bytes) {
  FileStore store = stateStore();
  const auto held = store.hold();
  addState(store, state, bytes,
           [&](const EarlierState& added) { store.keep(added.file, textOf(added), bytes); });
  clear(store);
}

std::optional<StateLayout> layoutOfImage() {
  const auto& layout = editorState.imageLayout;
  if (!layout) return std::nullopt;
  return StateLayout{layout->form, layout->base};
}

EarlierState newState(const StateRecord& record, std::span<const std::uint8_t> bytes) {
  return {{microsecondsNow(), hashOf(record.path), markOf(bytes)}, record};
}

std::string textOf(const EarlierState& state) {
  if (!state.record) return {};
  const StoredFile& file = state.file;
  const std::string text = std::string(title) + "\nwhen " + std::to_string(file.when) + "\nwhy " +
                           kindNames[static_cast<std::size_t>(state.record->kind)] +
                           (state.record->oneHalf ? ", one half" : "") +
                           layoutText(state.record->layout) + "\nbytes " +
                           std::to_string(file.mark.size) + "\nchecksum " + hex64(file.mark.hash) +
                           pathKey + state.record->path + '\n';
  return text + hex64(hashOf(text)) + '\n';
}

// It must be, letter for letter, the text that a state of this file has.
std::optional<StateRecord> recordIn(const std::string& text, const StoredFile& file) {
  constexpr std::size_t endLength = 18;  // the path's line end, the hash and its line end
  const std::size_t key = text.find(pathKey);
  const std::size_t from = key + std::string_view(pathKey).size();
  if (key == std::string::npos || text.size() < from + endLength) return std::nullopt;
  StateRecord record{text.substr(from, text.size() - endLength - from)};
  record.layout = layoutIn(text.substr(0, key));
  if (!isAbsolutePath(record.path) || hashOf(record.path) != file.subject) return std::nullopt;
  for (std::size_t kind = 0; kind < kindNames.size(); ++kind) {
    for (const bool half : {false, true}) {
      record.kind = static_cast<StateKind>(kind);
      record.oneHalf = half;
      if (textOf({file, record}) == text) return record;
    }
  }
  return std::nullopt;
}

void finishEarlierStates() {
  if (clearing.valid()) listed = clearing.get();
}

void tellStatesNotKept(int failure) {
  if (std::exchange(told, true)) return;
  const std::string what = "[" + std::to_string(failure) + "] " + failureText(failure);
  tellNotice({noticeSubject,
              NoticeKind::warning,
              {"以前の状態を残せません。" + what, "Earlier states can't be kept: " + what}});
}

void resetEarlierStates() { told = false; }
