#include "changes/differences_window.h"

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "changes/view_commands.h"
#include "controls/desktop.h"
#include "core/differences.h"
#include "core/editor_state.h"
#include "core/form1.h"
#include "core/history.h"
#include "core/pending_image.h"
#include "core/wording.h"

namespace {

constexpr std::array<ListColumn, 5> columns{{{{"名前", "Name"}, 3900},
                                             {{"セル数", "Cells"}, 900},
                                             {{"最大増", "Largest +"}, 1200},
                                             {{"最大減", "Largest -"}, 1200},
                                             {{"アドレス", "Addresses"}, 2400}}};

std::string signedChange(std::int64_t change) {
  if (change == 0) return {};
  return (change > 0 ? "+" : "") + std::to_string(change);
}

std::vector<std::string> textsOf(const Difference& each) {
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

DifferencesWindow::DifferencesWindow() : Window("Differences"), list(*this, columns) {
  onLoad = [this] { fill(); };
  list.nameAfter({&heading});
  defaultButton = &goThere;
  cancelButton = &close;
  firstFocus = &list;
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
  list.nameColumns();
  showRows();
}

const Difference* DifferencesWindow::chosen() const {
  return list.chosen() < rows_.size() ? &rows_[list.chosen()] : nullptr;
}

// The row that was chosen stays so, also when others come and go.
void DifferencesWindow::showRows() {
  const Difference* const former = chosen();
  const Difference kept = former ? *former : Difference{};
  const int formerRow = list.row();
  rows_ = differences();
  shownChanges_ = changesOfDifferences();
  std::vector<std::vector<std::string>> texts;
  for (const Difference& each : rows_) texts.push_back(textsOf(each));
  const auto same = std::find_if(rows_.begin(), rows_.end(),
                                 [&kept](const Difference& each) { return isSame(each, kept); });
  const int row =
      former && same != rows_.end() ? static_cast<int>(same - rows_.begin()) + 1 : formerRow;
  list.showRows(texts, row);
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
