#include "imagefiles/any_form.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

#include "core/dialogs.h"
#include "core/file_command.h"
#include "core/image_notices.h"
#include "core/loaded_image.h"
#include "core/loader_tail.h"
#include "core/refusals.h"
#include "core/settings_file.h"
#include "core/title_and_size.h"
#include "core/unsaved_guard.h"
#include "core/wording.h"
#include "imagefiles/fault_texts.h"
#include "imagefiles/file_watch.h"
#include "imagefiles/image_forms.h"
#include "platform/failure.h"
#include "platform/files.h"
#include "platform/numbers.h"
#include "rom/image_writing.h"

namespace {

const char* const location = "任意の形式読み込み";
constexpr Wording title{"任意の形式の読み込み", "Load any form"};
constexpr Wording fileTitle{"任意の形式のファイル", "Image of any form"};

constexpr std::array<ListColumn, 3> columns{
    {{{"内容", "Contents"}, 5200}, {{"アドレス", "Addresses"}, 3000}, {{"バイト", "Bytes"}, 1500}}};
constexpr std::size_t mostLines = 200;  // of gaps, and of faults
constexpr int mostDigits = 8;

using Line = std::vector<std::string>;

constexpr std::array<Wording, 3> formNames{
    {{"バイナリ", "Raw bytes"}, {"IntelHEX", "Intel HEX"}, {"Sレコード", "S-record"}}};

std::string hexAddress(std::uint64_t address) {
  constexpr int least = 2;
  return hexDigits(static_cast<std::int64_t>(address), least);
}

Line rangeLine(const Wording& what, std::uint64_t from, std::uint64_t to) {
  return {captioned(what), hexAddress(from) + "-" + hexAddress(to - 1), std::to_string(to - from)};
}

Line further(std::size_t count) {
  return {captioned({"さらに", "Further: "}) + std::to_string(count), "", ""};
}

std::vector<Line> linesOf(const ImageContent& content) {
  std::vector<Line> lines;
  lines.push_back(rangeLine(formNames[static_cast<std::size_t>(content.form)], content.base,
                            content.base + content.bytes.size()));
  for (const AddressRange& gap : content.gaps) {
    if (lines.size() > mostLines) {
      lines.push_back(further(content.gaps.size() - mostLines));
      break;
    }
    lines.push_back(rangeLine({"空き (FFで埋めます)", "Gap, filled with FF"}, gap.from, gap.to));
  }
  if (content.overlapping > 0) {
    lines.push_back({captioned({"重複 (後のデータが有効)", "Given twice, the last stands"}), "",
                     std::to_string(content.overlapping)});
  }
  if (!content.hasEnd) {
    lines.push_back(
        {captioned({"終了レコードがありません", "No end record: the file may be cut off"}), "",
         ""});
  }
  return lines;
}

std::vector<Line> linesOf(const std::vector<ImageFault>& faults) {
  std::vector<Line> lines;
  lines.reserve(faults.size());
  for (const ImageFault& fault : faults) lines.push_back({captionedBoth(textsOf(fault)), "", ""});
  return lines;
}

// What can't be read at all is a Failure.
FoundImage lookInto(const ChosenFile& file) {
  FoundImage found{file, readImageFile(file.path), {}, {}};
  try {
    found.content = readImageContent(found.bytes);
  } catch (const ImageFault&) {
    found.faults = imageFaults(found.bytes, mostLines);
  }
  return found;
}

// Nothing for a text that is no number of that many digits.
std::optional<std::uint32_t> addressIn(const std::string& text) {
  const bool isNumber = !text.empty() && text.size() <= mostDigits &&
                        text.find_first_not_of("0123456789ABCDEFabcdef") == std::string::npos;
  if (!isNumber) return std::nullopt;
  return static_cast<std::uint32_t>(parseLong("&H" + text));
}

bool hexKey(char32_t key) {
  return digitKey(key) || (key >= 'A' && key <= 'F') || (key >= 'a' && key <= 'f');
}

BothTexts sizeText(std::size_t bytes) {
  const std::string count = std::to_string(bytes);
  return {"ROMデータは" + count + "バイトになります。", "The image will have " + count + " bytes."};
}

void take(const FoundImage& found, std::uint32_t base) {
  RomImage image = bytesFrom(found.content, base);
  editorState.progressCount = 0;
  keepChosen(found.file);
  dropImage();
  showOperation("READ");
  const FileContent file{found.file.path, found.bytes};
  watchFiles({&file, 1});
  takeImage(std::move(image));
  const bool nameTells =
      found.content.form == ImageFileForm::raw && imageFormOf(found.file.path) != &intelHexImages;
  if (!nameTells) editorState.imageLayout = layoutOf(found.content, base);
  nameImage();
  showFileSize();
  loaderTail();
}

void tellFailure(int number, const std::string& name) {
  showFailure(number, "　Ill. DATA? ", name);
}

ChosenFile chosenToLoad() {
  return desktop().chooseFileToOpen(
      {"", worded(fileTitle), settledPath(editorState.romFolder), editorState.dialogPath});
}

}  // namespace

AnyFormWindow anyFormWindow;

AnyFormWindow::AnyFormWindow() : Window("AnyForm"), list(*this, columns) {
  wireDialog(*this, {[this] { fill(); }, &load, [this] { loadIt(); }, &cancel, &base});
  list.nameAfter({&heading});
  base.nameAfter({&baseLabel});
  base.describeBy({&verdict});
  base.keyFilter = hexKey;
  base.setMaxLength(mostDigits);
  base.onChange = [this] { judge(); };
  onUnload = [this] { found_ = {}; };
}

void AnyFormWindow::open(FoundImage image, std::optional<std::uint32_t> from) {
  found_ = std::move(image);
  base.setText(hexAddress(from.value_or(usualBase(found_.content))));
  openDialog(*this);
}

void AnyFormWindow::fill() {
  setCaption(captioned(title));
  heading.setCaption(captioned({"ファイル: ", "File: "}) + found_.file.path);
  baseLabel.setCaption(captioned(
      {"ROMデータの先頭のアドレス (16進):", "Address of the image's first byte (hexadecimal):"}));
  load.setCaption(captioned({"読み込み", "Load"}));
  cancel.setCaption(captioned({"キャンセル", "Cancel"}));
  list.nameColumns();
  list.showRows(found_.faults.empty() ? linesOf(found_.content) : linesOf(found_.faults), 1);
  base.setEnabled(found_.faults.empty() && found_.content.form != ImageFileForm::raw);
  judge();
}

// What loading from the base in the box would give, or why it can't be.
void AnyFormWindow::judge() {
  chosenBase_ = addressIn(base.text());
  BothTexts text;
  if (!found_.faults.empty()) {
    chosenBase_.reset();
    text = {"この内容は読み込めません。", "This can't be loaded."};
  } else if (!chosenBase_) {
    text = {"16進のアドレスを入力してください。", "Enter a hexadecimal address."};
  } else if (const auto fault = faultOfBase(found_.content, *chosenBase_)) {
    chosenBase_.reset();
    text = textsOf(*fault);
  } else {
    text = sizeText(found_.content.base - *chosenBase_ + found_.content.bytes.size());
  }
  verdict.setCaption(captionedBoth(text));
  load.setEnabled(chosenBase_.has_value());
}

// The file may have gone or changed meanwhile: what was shown is what is loaded.
void AnyFormWindow::loadIt() {
  if (!chosenBase_) return;
  const std::uint32_t from = *chosenBase_;
  const FoundImage found = std::move(found_);
  closeDialog(*this);
  runFileCommand({location, [&] { take(found, from); },
                  [&](int number) { tellFailure(number, found.file.title); }});
}

void loadAnyForm() { loadAnyFormFrom(""); }

void loadAnyFormFrom(const std::string& path, std::optional<std::uint32_t> base) {
  std::optional<FoundImage> found;
  std::string name = fileNameOf(path);
  const auto steps = [&] {
    if (refusedWithoutAddressMap()) return;
    confirmDiscard();
    if (editorState.guardAnswer == 0) return;
    const ChosenFile file = path.empty() ? chosenToLoad() : ChosenFile{path, name};
    name = file.title;
    showOperation("READ");
    found = lookInto(file);
  };
  const int failed =
      runFileCommand({location, steps, [&](int number) { tellFailure(number, name); }});
  if (failed == 0 && found) anyFormWindow.open(std::move(*found), base);
}

RomImage takeDecoded(const ImageForm& form, RomImage bytes) {
  RomImage records = &form == &intelHexImages ? bytes : RomImage();
  takeImage(form.decode(std::move(bytes)));
  return records;
}

void offerAnyForm(const ImageForm& form, const std::string& path, int failure) {
  constexpr std::size_t lookedAt = 4096;
  if (&form != &intelHexImages || failure != badSubscript) return;
  trapFailure([&] {
    if (imageFileForm(readFile(path, lookedAt)) == ImageFileForm::raw) return;
    const std::string name = fileNameOf(path);
    tellOtherWayIn({"「読み込み(IntelHEX)」では" + name +
                        "を読めません。「交換 > 任意の形式の読み込み」なら読めるかもしれません。",
                    "Load (IntelHEX) can't take " + name + "; Exchange > Load any form may."},
                   [path] { loadAnyFormFrom(path); });
  });
}

void tellIfReadOtherwise(const std::string& path, const RomImage& records) {
  if (imageFileForm(records) == ImageFileForm::raw) return;
  const std::string name = fileNameOf(path);
  BothTexts what{"アドレスどおりに読むと、" + name + "は「読み込み(IntelHEX)」とは別の内容です。",
                 "By its addresses " + name + " holds something else than Load (IntelHEX) read."};
  try {
    const ImageContent content = readImageContent(records);
    if (bytesFrom(content, usualBase(content)) == editorState.image) return;
  } catch (const ImageFault& fault) {
    const BothTexts why = textsOf(fault);
    what = {
        name + "は壊れています。" + why.japanese + "。「読み込み(IntelHEX)」はこれを調べません。",
        name + " is damaged, which Load (IntelHEX) doesn't look at. " + why.english + "."};
  }
  tellOtherWayIn(what, [path] { loadAnyFormFrom(path); });
}
