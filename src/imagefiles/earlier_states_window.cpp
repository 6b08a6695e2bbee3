#include "imagefiles/earlier_states_window.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

#include "core/dialogs.h"
#include "core/differences.h"
#include "core/editor_state.h"
#include "core/form1.h"
#include "core/pending_image.h"
#include "core/progress.h"
#include "core/unsaved_states.h"
#include "core/wording.h"
#include "imagefiles/earlier_images.h"
#include "platform/clock.h"
#include "platform/failure.h"
#include "platform/files.h"
#include "platform/replacement_names.h"
#include "rom/image_differences.h"

namespace {

constexpr std::int64_t second = 1'000'000;  // microseconds

constexpr std::array<ListColumn, 5> columns{{{{"日時", "Time"}, 2400},
                                             {{"名前", "Name"}, 3300},
                                             {{"理由", "Why"}, 2000},
                                             {{"サイズ", "Bytes"}, 1100},
                                             {{"相違バイト", "Different"}, 1500}}};

constexpr std::array<Wording, 3> reasons{{{"上書き保存の前", "before a save"},
                                          {"保存せずに破棄", "given up unsaved"},
                                          {"異常終了", "program ended"}}};
constexpr Wording unknown{"不明", "unknown"};
constexpr Wording damaged{"破損", "damaged"};

std::string timeOf(const EarlierState& state) {
  return localTime("%Y-%m-%d %H:%M:%S", state.file.when / second);
}

std::string nameOf(const EarlierState& state) {
  return state.record ? fileNameOf(state.record->path) : captioned(unknown);
}

std::string reasonOf(const EarlierState& state) {
  return captioned(state.record ? reasons[static_cast<std::size_t>(state.record->kind)] : unknown);
}

void compareWithChosen(const EarlierState& state) {
  const int failure =
      trapFailure([&] { compareWithState(imageOf(state), nameOf(state) + " " + timeOf(state)); });
  setProgress(-1);
  if (failure != 0) return showFailure(failure);
  form1().menuBar.find("differences")->userPick();
}

}  // namespace

EarlierStatesWindow earlierStatesWindow;

EarlierStatesWindow::EarlierStatesWindow() : Window("EarlierStates"), list(*this, columns) {
  wireDialog(*this, {[this] { fill(); }, &loadState, [this] { leaveFor(loadEarlierState); }, &close,
                     &list});
  list.nameAfter({&heading});
  list.onSelect = [this] { showChosen(); };
  list.onDoubleClick = [this] { showDifferences.userClick(); };
  thisFileOnly.onChange = [this] { showRows(1); };
  showDifferences.onClick = [this] { leaveFor(compareWithChosen); };
  saveCopy.onClick = [this] {
    makeTopmost(*this, false);
    if (const Row* const row = chosen()) saveStateCopy(row->state);
    makeTopmost(*this, true);
  };
  forget.onClick = [this] {
    const Row* const row = chosen();
    if (!row) return;
    forgetState(row->state);
    showRows(list.row());
  };
}

void EarlierStatesWindow::fill() {
  setCaption(captioned({"以前の状態", "Earlier states"}));
  thisFileOnly.setCaption(captioned({"このファイルだけ", "This file only"}));
  showDifferences.setCaption(captioned({"相違を表示", "Show differences"}));
  loadState.setCaption(captioned({"読み込み", "Load"}));
  saveCopy.setCaption(captioned({"コピーを保存...", "Save a copy..."}));
  forget.setCaption(captioned({"消去", "Forget"}));
  close.setCaption(captioned({"閉じる", "Close"}));
  list.nameColumns();
  thisFileOnly.setEnabled(!editorState.imagePath.empty());
  thisFileOnly.setChecked(editorState.imageSize != 0 && !showAllFirst);
  showRows(1);
}

// What a state differs in is found by reading it, which also tells whether it is whole.
void EarlierStatesWindow::showRows(int chosenRow) {
  const std::uint64_t own = hashOf(fullPath(editorState.imagePath));
  rows_.clear();
  for (const EarlierState& state : earlierStates()) {
    if (thisFileOnly.checked() && state.file.subject != own) continue;
    Row& row = rows_.emplace_back(Row{state, {}});
    row.damaged = trapFailure([&] {
                    const std::int64_t count = differentBytes(imageOf(state), pendingImage.bytes());
                    if (editorState.imageSize != 0) row.differing = std::to_string(count);
                  }) == deviceError;
    if (row.damaged) row.differing = captioned(damaged);
  }
  setProgress(-1);  // Intel HEX moves the bar as it is read
  std::vector<std::vector<std::string>> texts;
  for (const auto& [state, differing, isDamaged] : rows_) {
    texts.push_back({timeOf(state), nameOf(state), reasonOf(state),
                     std::to_string(state.file.mark.size), differing});
  }
  list.showRows(texts, chosenRow);
  showChosen();
}

const EarlierStatesWindow::Row* EarlierStatesWindow::chosen() const {
  return list.chosen() < rows_.size() ? &rows_[list.chosen()] : nullptr;
}

// The whole path of the chosen one, and what can be done with it.
void EarlierStatesWindow::showChosen() {
  list.lightRow(list.row());
  const Row* const row = chosen();
  const bool whole = row && !row->damaged;
  showDifferences.setEnabled(whole && editorState.imageSize != 0);
  loadState.setEnabled(whole && row->state.record);
  saveCopy.setEnabled(whole);
  forget.setEnabled(row);
  const std::string none = captioned({"以前の状態はありません。", "There are no earlier states."});
  const std::string lost = captioned({"記録がありません。", "Its record is lost."});
  heading.setCaption(!row ? none : row->state.record ? row->state.record->path : lost);
}

void EarlierStatesWindow::leaveFor(void (*command)(const EarlierState& state)) {
  const Row* const row = chosen();
  if (!row) return;
  const EarlierState state = row->state;
  closeDialog(*this);
  command(state);
}

// A crash's image may have been another one than that which was loaded since.
void showEarlierStates() {
  earlierStatesWindow.showAllFirst = withdrawUnfinishedNotice();
  openDialog(earlierStatesWindow);
}
