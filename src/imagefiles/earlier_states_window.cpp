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
#include "core/wording.h"
#include "imagefiles/earlier_images.h"
#include "platform/clock.h"
#include "platform/failure.h"
#include "platform/files.h"
#include "platform/replacement_names.h"

namespace {

constexpr Grid::Look listLook{{}, {}, 1};
constexpr int columns = 5;
constexpr int emptyRows = 2;  // its header and a row without a state
constexpr std::array<int, columns> widths{2400, 3300, 2000, 1100, 1500};  // twips
constexpr std::int64_t second = 1'000'000;                                // microseconds

constexpr std::array<Wording, columns> headers{{{"日時", "Time"},
                                                {"名前", "Name"},
                                                {"理由", "Why"},
                                                {"サイズ", "Bytes"},
                                                {"相違バイト", "Different"}}};

constexpr std::array<Wording, 3> reasons{{{"上書き保存の前", "before a save"},
                                          {"保存せずに破棄", "given up unsaved"},
                                          {"異常終了", "program ended"}}};
constexpr Wording unknown{"不明", "unknown"};
constexpr Wording damaged{"破損", "damaged"};

std::int64_t differentBytes(const RomImage& one, const RomImage& other) {
  const std::size_t common = std::min(one.size(), other.size());
  auto count = static_cast<std::int64_t>(std::max(one.size(), other.size()) - common);
  for (std::size_t i = 0; i < common; ++i) count += one[i] != other[i];
  return count;
}

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

EarlierStatesWindow::EarlierStatesWindow()
    : Window("EarlierStates"), list(*this, emptyRows, columns, 1, 0, listLook) {
  wireDialog(*this, {[this] { fill(); }, &loadState, [this] { leaveFor(loadEarlierState); }, &close,
                     &list});
  list.nameAfter({&heading});
  list.onSelect = [this] { showChosen(); };
  list.onDoubleClick = [this] { showDifferences.userClick(); };
  thisFileOnly.onChange = [this] { showRows(); };
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
    showRows();
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
  for (int column = 0; column < columns; ++column) {
    list.setColumnWidth(column, widths[static_cast<std::size_t>(column)]);
    list.setText(0, column, captioned(headers[static_cast<std::size_t>(column)]));
  }
  thisFileOnly.setEnabled(!editorState.imagePath.empty());
  thisFileOnly.setChecked(editorState.imageSize != 0);
  showRows();
}

// What a state differs in is found by reading it, which also tells whether it is whole.
void EarlierStatesWindow::showRows() {
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
  const GridPause pause(list);
  const int lines = std::max(static_cast<int>(rows_.size()) + 1, emptyRows);
  if (list.rows() != lines) list.resize(lines, columns);
  for (int column = 0; column < columns; ++column) list.setText(1, column, "");
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    const EarlierState& state = rows_[i].state;
    const std::array<std::string, columns> texts{timeOf(state), nameOf(state), reasonOf(state),
                                                 std::to_string(state.file.mark.size),
                                                 rows_[i].differing};
    for (int column = 0; column < columns; ++column) {
      list.setText(static_cast<int>(i) + 1, column, texts[static_cast<std::size_t>(column)]);
    }
  }
  const int row = std::clamp(list.row(), 1, lines - 1);
  list.setSelection({row, 0, row, columns - 1});
  showChosen();
}

const EarlierStatesWindow::Row* EarlierStatesWindow::chosen() const {
  const auto row = static_cast<std::size_t>(list.row() - 1);
  return row < rows_.size() ? &rows_[row] : nullptr;
}

// The whole path of the chosen one, and what can be done with it.
void EarlierStatesWindow::showChosen() {
  list.setSelection({list.row(), 0, list.row(), columns - 1});
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

void showEarlierStates() { openDialog(earlierStatesWindow); }
