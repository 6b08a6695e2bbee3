#include "imagefiles/image_forms.h"

#include <algorithm>
#include <numeric>
#include <span>
#include <string_view>

#include "core/differences.h"
#include "core/earlier_states.h"
#include "core/extensions.h"
#include "core/status_line.h"
#include "core/unsaved_states.h"
#include "imagefiles/file_watch.h"
#include "imagefiles/intel_hex_file.h"
#include "imagefiles/save_notices.h"
#include "platform/failure.h"
#include "platform/files.h"
#include "rom/image_writing.h"
#include "rom/intel_hex_reader.h"

namespace {

std::string lastChosen() { return editorState.dialogPath; }

std::string ownNameAsRaw() { return withExtension(editorState.imagePath, "bin"); }

std::string ownNameAsSRecords() { return withExtension(editorState.imagePath, "s19"); }

std::string lastChosenAsIntelHex() { return withExtension(editorState.dialogPath, "hex"); }

std::string lastChosenAsIntelHexOfImage() {
  return editorState.imagePath.empty() ? std::string() : lastChosenAsIntelHex();
}

RomImage takeRaw(RomImage fileBytes) {
  if (fileBytes.empty()) throw Failure(badSubscript);
  return fileBytes;
}

RomImage takeIntelHex(RomImage fileBytes) { return readIntelHex(fileBytes, imageHexCapacity); }

// The file at `path` holds `bytes` now.
void followSave(const std::string& path, std::span<const std::uint8_t> bytes) {
  dropUnfinishedImage();
  differencesOutdated();
  saySaved(editorState.savedImage.size());
  tellSaved();
  watchSaved(path, bytes);
}

// All bytes of the image, whatever a pair took of it.
void writeRaw(const std::string& path) {
  lookBeforeSave(path);
  replaceUserFile(path, editorState.image);
  editorState.savedImage = readFile(path, editorState.image.size());
  editorState.imageLayout.reset();
  followSave(path, editorState.savedImage);
}

void writeAsIntelHex(const std::string& path) {
  const auto size = static_cast<std::size_t>(editorState.imageSize);
  const auto image = std::span(editorState.image).first(size);
  lookBeforeSave(path);
  const std::string text = writeIntelHex(path, image);
  editorState.savedImage.assign(image.begin(), image.end());
  editorState.imageLayout.reset();
  followSave(path, {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
  tellLongIntelHex(size);
}

// An image that comes from addresses keeps them.
void writeAsSRecords(const std::string& path) {
  FileLayout layout = editorState.imageLayout.value_or(FileLayout{});
  layout.form = ImageFileForm::sRecords;
  writeAsLaidOut(path, layout);
}

std::int32_t always(const RomImage&) { return 1; }

// The sum of bytes 1 to 64.
std::int32_t sumOfFirstBytes(const RomImage& image) {
  constexpr std::size_t first = 1, count = 64;
  if (image.size() < first + count) throw Failure(badSubscript);
  const auto summed = std::span(image).subspan(first, count);
  return std::accumulate(summed.begin(), summed.end(), 0);
}

const char* const rawFilter = "Bin Image (*.bin)|*.bin";
const char* const hexFilter = "HEX Image (*.hex)|*.hex";

}  // namespace

const std::array<ImageForm, 3> imageForms{{
    {"bin",
     {"BIN別名保存", rawFilter, {"BIN Image 書き込み", "Save BIN Image"}},
     ownNameAsRaw,
     writeRaw,
     {"BIN読み込み", rawFilter, {"BIN Image 読み込み", "Load BIN Image"}},
     {"COMP BIN読み込み",
      rawFilter,
      {"比較用　BIN Image 読み込み", "Load BIN Image For comparison"}},
     lastChosen,
     takeRaw,
     always,
     false},
    {"hex",
     {"IntelHEX別名保存",
      "IntelHEX Image (*.hex)|*.hex",
      {"IntelHEX Image 書き込み", "Save IntelHEX Image"}},
     lastChosenAsIntelHexOfImage,
     writeAsIntelHex,
     {"IntelHEX読み込み", hexFilter, {"IntelHEX Image 読み込み", "Load IntelHEX Image"}},
     {"Comp IntelHEX読み込み",
      hexFilter,
      {"比較用　IntelHEX Image 読み込み", "Load IntelHEX Image For comparison"}},
     lastChosenAsIntelHex,
     takeIntelHex,
     sumOfFirstBytes,
     true},
    {"s19",
     {"Sレコード別名保存",
      "S-record|*.s19;*.s28;*.s37;*.mot;*.srec",
      {"Sレコード 書き込み", "Save S-record"}},
     ownNameAsSRecords,
     writeAsSRecords,
     {},
     {},
     nullptr,
     nullptr,
     nullptr,
     false},
}};

const ImageForm& rawImages = imageForms[0];
const ImageForm& intelHexImages = imageForms[1];
const ImageForm& sRecordImages = imageForms[2];

const ImageForm* imageFormOf(const std::string& path) {
  const std::string extension = extensionOf(path);
  const auto isIt = [&](const ImageForm& form) {
    return form.decode && extensionOf(form.extension) == extension;
  };
  const auto form = std::ranges::find_if(imageForms, isIt);
  return form == imageForms.end() ? nullptr : &*form;
}

void writeAsLaidOut(const std::string& path, const FileLayout& layout) {
  const auto file = fileOf(editorState.image, layout);
  if (!file) {
    tellFormHoldsNot(path, layout.form);
    throw Failure(cancelled);
  }
  lookBeforeSave(path);
  replaceUserFile(path, *file);
  editorState.savedImage = editorState.image;
  editorState.imageLayout = layout;
  followSave(path, *file);
}

RomImage readImageFile(const std::string& path) {
  finishReplacements(path);
  if (fileSize(path) > largestImageFile) throw Failure(outOfMemory);
  RomImage bytes = readFile(path, largestImageFile + 1);
  if (bytes.size() > largestImageFile) throw Failure(outOfMemory);
  return bytes;
}
