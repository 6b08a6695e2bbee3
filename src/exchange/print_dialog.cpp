#include "exchange/print_dialog.h"

#include <array>
#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "controls/desktop.h"
#include "controls/print_job.h"
#include "core/dialogs.h"
#include "core/editor_state.h"
#include "core/file_export.h"
#include "core/map_places.h"
#include "core/wording.h"
#include "exchange/map_table.h"
#include "exchange/print_pages.h"
#include "platform/clock.h"
#include "platform/utf8.h"

namespace {

void savePdf(const std::function<std::string()>& pdf) {
  const FileDialog dialog{"PDF (*.pdf)|*.pdf", captioned({"PDF の保存", "Save as PDF"}),
                          editorState.romFolder, exportName() + ".pdf"};
  exportFile("印刷", dialog, [&pdf](const std::string&) { return pdf(); });
}

void showPagesOf(const std::vector<MapTable>& tables) {
  const PageTexts texts{editorState.addressMap.typeUnit, editorState.imageTitle,
                        localTime("%Y-%m-%d %H:%M")};
  desktop().showPages(
      {exportName(), wantLandscape(tables),
       [tables, texts](const PaperArea& area) { return pagesOf(tables, texts, area); }, savePdf});
}

// A caption that leaves the dialog its size.
std::string shortened(const std::string& name) {
  constexpr std::size_t longest = 30;  // characters
  const std::u32string characters = utf32(name);
  return characters.size() <= longest ? name : utf8(characters.substr(0, longest - 1)) + "…";
}

}  // namespace

PrintDialog printDialog;

PrintDialog::PrintDialog() : Window("Print") {
  wireDialog(*this, {[this] { fill(); }, &preview, [this] { accept(); }, &cancel, &preview});
  thisMap.onClick = [this] { tick([this](const MapKind& kind) { return isCurrent(kind); }); };
  // Scales stand on the pages of their maps.
  allMaps.onClick = [this] { tick([](const MapKind& kind) { return !kind.isScale(); }); };
  noMap.onClick = [this] { tick([](const MapKind&) { return false; }); };
}

std::array<std::unique_ptr<CheckBox>, mapCount> PrintDialog::boxesFor(Window& window) {
  std::array<std::unique_ptr<CheckBox>, mapCount> boxes;
  for (auto& box : boxes) box = std::make_unique<CheckBox>(window);
  return boxes;
}

void PrintDialog::fill() {
  setCaption(captioned({"印刷", "Print"}));
  heading.setCaption(captioned({"印刷するマップ (1枚に1つ)", "Maps to print, each on a page"}));
  thisMap.setCaption(captioned({"このマップ", "This map"}));
  allMaps.setCaption(captioned({"すべてのマップ", "All maps"}));
  noMap.setCaption(captioned({"なし", "None"}));
  preview.setCaption(captioned({"プレビュー", "Preview"}));
  cancel.setCaption(captioned({"キャンセル", "CANCEL"}));
  for (std::size_t i = 0; i < maps.size(); ++i) {
    maps[i]->setCaption(shortened(nameOf(mapKinds()[i])));
    maps[i]->setVisible(entryOf(mapKinds()[i]).present());
  }
  current_ = mapOfCursor();
  thisMap.setEnabled(current_);
  tick([this](const MapKind& kind) { return isCurrent(kind); });
}

void PrintDialog::tick(const std::function<bool(const MapKind& kind)>& wanted) {
  for (std::size_t i = 0; i < maps.size(); ++i) {
    maps[i]->setChecked(entryOf(mapKinds()[i]).present() && wanted(mapKinds()[i]));
  }
}

void PrintDialog::accept() {
  std::vector<MapTable> tables;
  for (std::size_t i = 0; i < maps.size(); ++i) {
    const MapKind& kind = mapKinds()[i];
    if (maps[i]->checked()) tables.push_back(tableOf(kind, storedBlock(kind)));
  }
  if (tables.empty()) {
    return showRefusal({"マップが選択されていません。", "No map is chosen."});
  }
  closeDialog(*this);
  showPagesOf(tables);
}

void printMaps() { openDialog(printDialog); }
