#include "imagefiles/odd_even.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <utility>

#include "core/dialogs.h"
#include "core/earlier_states.h"
#include "core/editor_state.h"
#include "core/extensions.h"
#include "core/file_command.h"
#include "core/loaded_image.h"
#include "core/loader_tail.h"
#include "core/overwrite_question.h"
#include "core/refusals.h"
#include "core/rom_image.h"
#include "core/settings_file.h"
#include "core/title_and_size.h"
#include "core/unsaved_guard.h"
#include "core/unsaved_states.h"
#include "imagefiles/file_watch.h"
#include "imagefiles/image_forms.h"
#include "imagefiles/save_notices.h"
#include "platform/failure.h"
#include "platform/files.h"
#include "platform/numbers.h"
#include "rom/intel_hex_reader.h"
#include "rom/intel_hex_writer.h"

OddEven oddeven;

namespace {

constexpr std::int32_t bytesOfKbit = 128;
constexpr std::uint8_t unusedByte = 0xFF;
const char* const loading = "BIN読み込み";
const char* const saving = "BIN別名保存";

// The two forms of a pair; texts by file, odd then even.
struct PairForm {
  const char* setting;
  Option OddEven::*option;
  const ImageForm& image;
  std::array<Wording, 2> loadTitles;
  std::array<Wording, 2> saveTitles;
  RomImage (*decode)(RomImage fileBytes, std::size_t imageBytes);
  std::string (*encode)(const RomImage& half);
};

RomImage decodeRaw(RomImage fileBytes, std::size_t imageBytes) {
  if (fileBytes.size() < imageBytes / 2) throw Failure(badSubscript);
  return fileBytes;
}

// What the records don't give stays 0. A full file of the largest size needs more than the usual
// capacity.
RomImage decodeIntelHex(RomImage fileBytes, std::size_t imageBytes) {
  const auto capacity = std::max(halfHexCapacity, static_cast<std::int64_t>(imageBytes));
  RomImage half = readIntelHexOrNothing(fileBytes, capacity);
  half.resize(std::max(half.size(), imageBytes / 2));
  return half;
}

std::string encodeRaw(const RomImage& half) { return {half.begin(), half.end()}; }

std::string encodeIntelHex(const RomImage& half) { return intelHexText(half); }

const std::array<PairForm, 2> forms = {{
    {"BINARY",
     &OddEven::Option1,
     rawImages,
     {{{"奇数 BIN Image 読み込み", "Load ODD BIN Image"},
       {"偶数 BIN Image 読み込み", "Load EVEN BIN Image"}}},
     {{{"奇数　BIN Image 書き込み", "Save ODD BIN Image"},
       {"偶数　BIN Image 書き込み", "Save EVEN BIN Image"}}},
     decodeRaw,
     encodeRaw},
    {"IntelHEX",
     &OddEven::Option2,
     intelHexImages,
     {{{"奇数 IntelHEX Image 読み込み", "Load ODD IntelHEX Image"},
       {"偶数 IntelHEX Image 読み込み", "Load EVEN IntelHEX Image"}}},
     {{{"奇数　IntelHEX Image 書き込み", "Save ODD IntelHEX Image"},
       {"偶数　IntelHEX Image 書き込み", "Save EVEN IntelHEX Image"}}},
     decodeIntelHex,
     encodeIntelHex},
}};

const Wording instruction{"最初は奇数のファイルを選択する。次に偶数のファイルを選択する。",
                          "Odd files are chosen at first. Next, even files are chosen."};

struct Choice {
  const PairForm& form;
  std::size_t imageBytes;
};

// The dialog leaves the topmost order while something else is to be seen.
template <class Show>
auto beneath(Show show) {
  struct BackOnTop {
    ~BackOnTop() { makeTopmost(oddeven, true); }
  };
  makeTopmost(oddeven, false);
  const BackOnTop backOnTop;
  return show();
}

void askFor(const char* missing) {
  beneath([&] {
    return desktop().showBox({BoxIcon::information, BoxButtons::ok, "Information", missing});
  });
}

// Nothing, after a box that tells it, when a choice is missing.
std::optional<Choice> choiceOrBox() {
  if (oddeven.List1.index() < 0) {
    askFor("Select ROM Size");
    return std::nullopt;
  }
  for (const PairForm& form : forms) {
    if (!(oddeven.*form.option).selected()) continue;
    return Choice{form, static_cast<std::size_t>(parseLong(oddeven.List1.text()) * bytesOfKbit)};
  }
  askFor("Select File Format(Binary or IntelHEX)");
  return std::nullopt;
}

// Settings that can't be written take nothing from a pair that was loaded or saved.
void keepChoice(const Choice& choice, const char* operation) {
  editorState.splitRomKbit = oddeven.List1.text();
  editorState.splitFormat = choice.form.setting;
  beneath([&] { saveSettingsOrTell(operation); });
}

RomImage readHalf(const Choice& choice, const Wording& title) {
  desktop().setBusyPointer(false);
  keepChosen(
      desktop().chooseFileToOpen({choice.form.image.save.filter, worded(title),
                                  settledPath(editorState.romFolder), editorState.dialogPath}));
  showOperation("READ");
  return readImageFile(editorState.dialogPath);
}

RomImage joined(const RomImage& odd, const RomImage& even, std::size_t imageBytes) {
  RomImage image(imageBytes);
  for (std::size_t k = 0; k < imageBytes / 2; ++k) {
    image[2 * k] = odd[k];
    image[2 * k + 1] = even[k];
  }
  return image;
}

void loadPair(const Choice& choice) {
  editorState.progressCount = 0;
  RomImage odd = readHalf(choice, choice.form.loadTitles[0]);
  const std::string oddPath = editorState.dialogPath;
  RomImage even = readHalf(choice, choice.form.loadTitles[1]);
  dropImage();
  watchFiles(std::array{FileContent{oddPath, odd}, FileContent{editorState.dialogPath, even}});
  showOperation("READ");
  odd = choice.form.decode(std::move(odd), choice.imageBytes);
  even = choice.form.decode(std::move(even), choice.imageBytes);
  takeImage(joined(odd, even, choice.imageBytes));
  nameImage();
  editorState.imageIsOneHalf = true;
  showFileSize();
  loaderTail();
  keepChoice(choice, loading);
}

// Every other byte from `first` on; the file is as long as the image, its second half unused.
RomImage halfFrom(std::size_t first, std::size_t imageBytes) {
  RomImage half(imageBytes, unusedByte);
  for (std::size_t k = 0; k < imageBytes / 2; ++k) half[k] = editorState.image[2 * k + first];
  return half;
}

// The path, or nothing when the file there is not to be overwritten; the first half's own file
// counts as there.
std::optional<std::string> askForTarget(const Choice& choice, const Wording& title,
                                        const std::string& firstHalf) {
  const ChosenFile chosen = desktop().chooseFileToSave(
      {choice.form.image.save.filter, worded(title), settledPath(editorState.romFolder),
       withExtension(editorState.imagePath, choice.form.image.extension)});
  const bool agreed = beneath([&] {
    return nameSameFile(chosen.path, firstHalf) ? userOverwrites(chosen.title)
                                                : mayOverwrite(chosen.path, chosen.title);
  });
  if (!agreed) return std::nullopt;
  return chosen.path;
}

std::span<const std::uint8_t> bytesOf(const std::string& text) {
  return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

void savePair(const Choice& choice) {
  editorState.progressCount = 0;
  const auto oddPath = askForTarget(choice, choice.form.saveTitles[0], "");
  if (!oddPath) return;
  const auto evenPath = askForTarget(choice, choice.form.saveTitles[1], *oddPath);
  if (!evenPath) return;
  showOperation("WRITE");
  writeBackAll();
  editorState.imageSize = static_cast<std::int32_t>(choice.imageBytes);
  if (editorState.image.size() < choice.imageBytes) throw Failure(badSubscript);
  const std::string odd = choice.form.encode(halfFrom(0, choice.imageBytes));
  const std::string even = choice.form.encode(halfFrom(1, choice.imageBytes));
  const std::array files{FileContent{*oddPath, bytesOf(odd)},
                         FileContent{*evenPath, bytesOf(even)}};
  for (const FileContent& file : files) lookBeforeSave(file.path);
  replaceUserFiles(files);
  for (const FileContent& file : files) noteWritten(file.path, file.bytes);
  tellSaved();
  tellPartSaved(choice.imageBytes);
  keepChoice(choice, saving);
  updateTitleBar();
}

// True when the dialog stays open: a choice is missing.
bool loadCommand() {
  if (beneath(refusedWithoutAddressMap)) return false;
  beneath(confirmDiscard);
  if (editorState.guardAnswer == 0) return false;
  const auto choice = choiceOrBox();
  if (choice) loadPair(*choice);
  return !choice;
}

bool saveCommand() {
  if (beneath([] { return refusedWithoutImage(nothingToSave); })) return false;
  const auto choice = choiceOrBox();
  if (choice) savePair(*choice);
  return !choice;
}

void tellLoadFailure(int number) {
  beneath([&] { showFailure(number, "　Ill. DATA? ", editorState.dialogTitle); });
}

void tellSaveFailure(int number) { showFailure(number); }

// A load that failed leaves nothing loaded.
void afterLoadFailure(int number) {
  if (number == cancelled) return;
  dropImage();
}

void afterSaveFailure(int number) {
  if (number == cancelled) return;
  keepGivenUpImage();
  tellEditsKept();
  editorState.imageSize = 0;
}

// Runs a button's command and closes the dialog, unless the command leaves it open.
void press(bool (*command)(), FileCommand frame) {
  bool staysOpen = false;
  frame.steps = [&] { staysOpen = command(); };
  runFileCommand(frame);
  if (!staysOpen) closeDialog(oddeven);
}

}  // namespace

OddEven::OddEven() : Window("oddeven") {
  const auto fill = [this] {
    setCaption(captioned({"偶数/奇数ファイル", "Odd/Even File"}));
    Label1.setCaption(captioned(instruction));
    Label2.setCaption(captioned(instruction));
    Command1.setCaption(captioned({"読み込み", "Load ODD/EVEN Files"}));
    Command2.setCaption(captioned({"書き出し", "Save ODD/EVEN Files"}));
    List1.selectText(editorState.splitRomKbit);
    const Option* chosen = nullptr;
    for (const PairForm& form : forms) {
      if (editorState.splitFormat == form.setting) chosen = &(this->*form.option);
    }
    formats.select(chosen);
  };
  const auto load = [] { press(loadCommand, {loading, {}, tellLoadFailure, afterLoadFailure}); };
  wireDialog(*this, {fill, &Command1, load, &Close, &List1});
  List1.nameAfter({&Frame1});
  for (Option* option : formats.members()) option->nameAfter({&Frame2});
  Command2.onClick = [] { press(saveCommand, {saving, {}, tellSaveFailure, afterSaveFailure}); };
}

void odd_even_file() { openDialog(oddeven); }
