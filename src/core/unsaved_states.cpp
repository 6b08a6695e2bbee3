#include "core/unsaved_states.h"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <future>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "core/earlier_states.h"
#include "core/editor_state.h"
#include "core/form1.h"
#include "core/notices.h"
#include "core/pending_image.h"
#include "platform/clock.h"
#include "platform/failure.h"
#include "platform/replacement_names.h"

namespace {

constexpr const char* noticeSubject = "unfinished image";
constexpr int halfMinute = 30'000;  // milliseconds

// The states of running programs, one folder for each, which its program holds as long as it lives.
FileStore runningPrograms() { return stateStore().below("running"); }

struct Written {
  int failure = 0;
  std::optional<StoredFile> file;
};

struct Unfinished {
  std::optional<FileStore> store;
  std::optional<HeldFile> held;
  std::optional<StoredFile> kept;
  // What was written last: the bytes and the path that they belong to.
  RomImage image;
  std::string path;
  std::future<Written> writing;

  bool atRest() const {
    constexpr std::chrono::seconds none(0);
    return !writing.valid() || writing.wait_for(none) == std::future_status::ready;
  }
};

Unfinished unfinished;
bool unfinishedFound = false;

bool takeFolder() {
  if (unfinished.held) return true;
  unfinished.store = runningPrograms().below(freshNumber());
  auto held = unfinished.store->hold();
  if (held) unfinished.held.emplace(std::move(*held));
  return held.has_value();
}

void forgetUnfinished() {
  unfinished.kept.reset();
  unfinished.image.clear();
  unfinished.held.reset();
}

std::optional<StateRecord> recordOfImage(StateKind kind) {
  if (editorState.imagePath.empty() || editorState.image.empty() || !hasEarlierStates()) return {};
  return StateRecord{fullPath(editorState.imagePath), kind, editorState.imageIsOneHalf,
                     layoutOfImage()};
}

// As a save would write it, also while no write-back is followed.
RomImage imageToSave() {
  PendingImage image;
  image.rebuild();
  return image.bytes();
}

// The new state is whole before the former one goes.
Written writeState(FileStore store, const StateRecord& record,
                   const std::optional<StoredFile>& former, const RomImage& bytes) {
  const EarlierState next = newState(record, bytes);
  const int failure = trapFailure([&] { store.keep(next.file, textOf(next), bytes); });
  if (failure != 0) return {failure, former};
  if (former) store.forget(*former);
  return {0, next.file};
}

void finishWriting() {
  if (!unfinished.writing.valid()) return;
  const Written written = unfinished.writing.get();
  unfinished.kept = written.file;
  if (written.failure == 0) return;
  unfinished.image.clear();
  tellStatesNotKept(written.failure);
}

// The states of a program that ended come into the store.
void takeOver(FileStore program, std::vector<EarlierState>& found) {
  for (const StoredFile& file : program.files()) {
    const EarlierState state{file, recordIn(program.text(file), file)};
    keepState(state, program.read(file));
    program.forget(file);
    found.push_back(state);
  }
  program.removeLock();
}

std::vector<EarlierState> takeOverAll() {
  std::vector<EarlierState> found;
  const FileStore programs = runningPrograms();
  for (const std::string& name : programs.folders()) {
    const FileStore program = programs.below(name);
    const auto held = program.holdIfAbandoned();
    if (held) trapFailure([&] { takeOver(program, found); });
  }
  return found;
}

void tellFound(const EarlierState& state, const std::function<void()>& showStates) {
  constexpr std::int64_t second = 1'000'000;  // microseconds
  const std::string when = localTime("%Y-%m-%d %H:%M", state.file.when / second);
  const std::string name = state.record ? fileNameOf(state.record->path) : "?";
  tellNotice({noticeSubject,
              NoticeKind::warning,
              {name + "は保存されないまま終了しました。" + when + "の状態が残っています。",
               name + " was not saved when the program ended; its state of " + when + " is kept."},
              {{{"以前の状態", "Earlier states"}, showStates}}});
}

}  // namespace

// What could not be kept as given up stays where the next start finds it.
void keepGivenUpImage() noexcept {
  const int failure = trapFailure([] {
    const auto record = recordOfImage(StateKind::givenUp);
    if (!record) return;
    const RomImage image = imageToSave();
    if (image != editorState.savedImage) keepState(newState(*record, image), image);
  });
  if (failure == 0) return dropUnfinishedImage();
  trapFailure([failure] { tellStatesNotKept(failure); });
  finishUnfinishedImage();
  forgetUnfinished();
}

void keepUnfinishedImage() noexcept {
  trapFailure([] {
    if (!unfinished.atRest()) return;
    finishWriting();
    const auto record = recordOfImage(StateKind::unfinished);
    if (!record) return;
    RomImage image = imageToSave();
    if (image == editorState.savedImage) return dropUnfinishedImage();
    if (record->path == unfinished.path && image == unfinished.image) return;
    if (!takeFolder()) return tellStatesNotKept(pathFileAccess);
    unfinished.path = record->path;
    unfinished.image = image;
    unfinished.writing = std::async(std::launch::async, writeState, *unfinished.store, *record,
                                    unfinished.kept, std::move(image));
  });
}

void finishUnfinishedImage() noexcept { trapFailure(finishWriting); }

void dropUnfinishedImage() noexcept {
  if (!unfinished.held) return;
  finishUnfinishedImage();
  if (unfinished.kept) unfinished.store->forget(*unfinished.kept);
  forgetUnfinished();
  unfinished.store->removeLock();
}

bool withdrawUnfinishedNotice() {
  withdrawNotice(noticeSubject);
  return std::exchange(unfinishedFound, false);
}

void watchUnsavedImage(const std::function<void()>& showStates) {
  dropUnfinishedImage();
  if (!hasEarlierStates()) return;
  separateStates();
  const std::vector<EarlierState> found = takeOverAll();
  unfinishedFound = !found.empty();
  if (!found.empty()) {
    const auto when = [](const EarlierState& state) { return state.file.when; };
    tellFound(*std::ranges::max_element(found, {}, when), showStates);
  }
  form1().stateTimer.onTimer = keepUnfinishedImage;
  form1().stateTimer.restart(halfMinute);
}
