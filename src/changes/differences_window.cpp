#include "changes/differences_window.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>

#include "changes/view_commands.h"
#include "controls/desktop.h"
#include "core/differences.h"
#include "core/editor_state.h"
#include "core/form1.h"
#include "core/history.h"
#include "core/pending_image.h"
#include "core/wording.h"

namespace {

constexpr Grid::Look listLook{{}, {}, 1};
constexpr int columns = 5;
constexpr int emptyRows = 2;  // its header and a row without a difference
constexpr std::array<int, columns> widths{3900, 900, 1200, 1200, 2400};  // twips

constexpr std::array<Wording, columns> headers{{{"名前", "Name"},
                                                {"セル数", "Cells"},
                                                {"最大増", "Largest +"},
                                                {"最大減", "Largest -"},
                                                {"アドレス", "Addresses"}}};

std::string signedChange(std::int64_t change) {
  if (change == 0) return {};
  return (change > 0 ? "+" : "") + std::to_string(change);
}

std::array<std::string, columns> textsOf(const Difference& each) {
  return {nameOf(each), std::to_string(each.count), signedChange(each.up), signedChange(each.down),
          addressText(each.from) + "-" + addressText(each.to)};
}

bool isSame(const Difference& one, const Difference& other) {
  return one.map == other.map && one.param == other.param &&
         (!one.isOutside() || one.from == other.from);
}

std::string sizeOf(const RomImage& image) {
  return " (" + std::to_string(image.size()) + captioned({"バイト", " bytes"}) + ")";
}

std::string headingText() {
  const RomImage* const reference = referenceImage();
  if (!reference)
    return captioned({"比較の対象がありません。", "There is nothing to compare with."});
  std::string text = editorState.imageTitle + sizeOf(pendingImage.bytes()) + " - " +
                     referenceName() + sizeOf(*reference);
  if (reference->size() != pendingImage.bytes().size()) {
    text += captioned({"　短い方の長さまで比較しています。",
                       ". They are compared as far as the shorter one goes."});
  }
  return text;
}

}  // namespace

DifferencesWindow differencesWindow;

DifferencesWindow::DifferencesWindow()
    : Window("Differences"), list(*this, emptyRows, columns, 1, 0, listLook) {
  onLoad = [this] { fill(); };
  list.nameAfter({&heading});
  defaultButton = &goThere;
  cancelButton = &close;
  firstFocus = &list;
  list.onSelect = [this] { list.setSelection({list.row(), 0, list.row(), columns - 1}); };
  list.onDoubleClick = [this] { goThere.userClick(); };
  goThere.onClick = [this] {
    if (const Difference* const row = chosen()) goToDifference(*row);
  };
  takeOver.onClick = [this] {
    const Difference* const row = chosen();
    if (!row) return;
    nameStep({"相違の取り込み", "take over"});
    ::takeOver(*row);
  };
  copyAsText.onClick = [] { desktop().setClipboardText(differenceReport()); };
  close.onClick = [this] { unload(); };
}

void DifferencesWindow::fill() {
  setCaption(captioned({"相違一覧", "Differences"}));
  goThere.setCaption(captioned({"移動", "Go there"}));
  takeOver.setCaption(captioned({"取り込む", "Take over"}));
  copyAsText.setCaption(captioned({"テキストとしてコピー", "Copy as text"}));
  close.setCaption(captioned({"閉じる", "Close"}));
  for (int column = 0; column < columns; ++column) {
    list.setColumnWidth(column, widths[static_cast<std::size_t>(column)]);
    list.setText(0, column, captioned(headers[static_cast<std::size_t>(column)]));
  }
  showRows();
}

const Difference* DifferencesWindow::chosen() const {
  const auto row = static_cast<std::size_t>(list.row() - 1);
  return row < rows_.size() ? &rows_[row] : nullptr;
}

// The row that was chosen stays so, also when others come and go.
void DifferencesWindow::showRows() {
  const Difference* const former = chosen();
  const Difference kept = former ? *former : Difference{};
  const int formerRow = list.row();
  rows_ = differences();
  shownChanges_ = changesOfDifferences();
  const GridPause pause(list);
  const int lines = std::max(static_cast<int>(std::size(rows_)) + 1, emptyRows);
  if (list.rows() != lines) list.resize(lines, columns);
  for (int column = 0; column < columns; ++column) list.setText(1, column, "");
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    const auto texts = textsOf(rows_[i]);
    for (int column = 0; column < columns; ++column) {
      list.setText(static_cast<int>(i) + 1, column, texts[static_cast<std::size_t>(column)]);
    }
  }
  const auto same = std::find_if(rows_.begin(), rows_.end(),
                                 [&kept](const Difference& each) { return isSame(each, kept); });
  const int row = former && same != rows_.end() ? static_cast<int>(same - rows_.begin()) + 1
                                                : std::min(formerRow, lines - 1);
  list.setSelection({std::max(row, 1), 0, std::max(row, 1), columns - 1});
  for (Button* button : {&goThere, &takeOver, &copyAsText}) button->setEnabled(!rows_.empty());
  heading.setCaption(headingText());
}

void DifferencesWindow::follow() {
  if (loaded() && shownChanges_ != changesOfDifferences()) showRows();
}

void showDifferences() {
  differencesWindow.standBeside(form1());
  differencesWindow.centreOn(form1());
  differencesWindow.load();
  desktop().showWindow(differencesWindow);
}
