#include "core/loader_tail.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <utility>

#include "core/boost.h"
#include "core/dialogs.h"
#include "core/form1.h"
#include "core/global_parameters.h"
#include "core/map_display.h"
#include "platform/failure.h"
#include "platform/files.h"
#include "platform/numbers.h"
#include "platform/utf8.h"

namespace {

const Wording noAddressMap{
    "機種別アドレスが読み込まれていないのに、ROMデータを読み込もうとしました。",
    "An address file reads and been crowded, it aren't possible to read ROM data and be crowded."};
const Wording existsTitle{"ファイルは既に存在します。", "A file exists already."};
const Wording existsQuestion{"そのファイルは既に存在します。上書きで保存しますか？",
                             "The file exists already.Do you preserve it with overwrite coming?"};

constexpr std::size_t extensionLength = 3;

}  // namespace

const Wording nothingToSave{"データが読み込まれていないのに保存しようとしました。",
                            "Data did to preserve it been crowded as reading."};

void updateTitleBar() { form1().setCaption(editorState.imageTitle + " - ZELKOVA"); }

void showFileSize() {
  form1().Label20.setCaption("File size = " + signedBlank(editorState.imageSize) + " Bytes");
}

void loaderTail() {
  updateTitleBar();
  {
    const GridsPause pause;
    redrawAllMaps();
    showGlobalParams();
    setGridLayout();
    recalculateBoost();
  }
  form1().refresh();
}

void takeImage(RomImage bytes) {
  if (bytes.empty()) throw Failure(badSubscript);
  if (bytes.size() > std::numeric_limits<std::int32_t>::max()) throw Failure(overflow);
  editorState.savedImage = bytes;
  editorState.imageSize = static_cast<std::int32_t>(bytes.size());
  editorState.image = std::move(bytes);
  editorState.imageIsOneHalf = false;
}

void dropImage() {
  editorState.image.clear();
  editorState.savedImage.clear();
  editorState.imageSize = 0;
  showFileSize();
  form1().setCaption("ZELKOVA");
}

bool refusedWithoutAddressMap() {
  if (!editorState.addressMap.typeUnit.empty()) return false;
  showRefusal(noAddressMap);
  return true;
}

bool refusedWithoutImage(const Wording& text) {
  if (editorState.imageSize != 0) return false;
  showRefusal(text);
  return true;
}

bool userOverwrites(const std::string& title) {
  const BoxAnswer answer =
      desktop().showBox({BoxIcon::question, BoxButtons::okCancel, worded(existsTitle),
                         title + "\r\n" + worded(existsQuestion)});
  return answer == BoxAnswer::ok;
}

bool mayOverwrite(std::string path, const std::string& title) {
  return !fileExists(std::move(path)) || userOverwrites(title);
}

void keepChosen(const ChosenFile& chosen) {
  editorState.dialogPath = chosen.path;
  editorState.dialogTitle = chosen.title;
}

void nameImage() {
  editorState.imagePath = editorState.dialogPath;
  editorState.imageTitle = editorState.dialogTitle;
}

std::string extensionOf(const std::string& path) {
  std::string extension = path.substr(path.size() - std::min(path.size(), extensionLength));
  for (char& letter : extension) {
    if (letter >= 'a' && letter <= 'z') letter = static_cast<char>(letter - 'a' + 'A');
  }
  return extension;
}

std::string withExtension(const std::string& path, const std::string& extension) {
  if (path.empty()) return {};
  const std::u32string characters = utf32(path);
  const std::size_t kept = characters.size() - std::min(characters.size(), extensionLength);
  return utf8(std::u32string_view(characters).substr(0, kept)) + extension;
}
