#include "imagefiles/comparison_image.h"

#include <numeric>
#include <string>

#include "core/dialogs.h"
#include "core/editor_state.h"
#include "core/file_command.h"
#include "core/form1.h"
#include "core/loader_tail.h"
#include "core/settings_file.h"
#include "imagefiles/intel_hex_files.h"
#include "imagefiles/intel_hex_reader.h"
#include "platform/failure.h"
#include "platform/files.h"

namespace {

// The first and the last byte of the sum that tells whether an image from Intel HEX is there.
constexpr int firstSummed = 1;
constexpr int lastSummed = 64;

RomImage takeRaw(RomImage fileBytes) {
  if (fileBytes.empty()) throw Failure(badSubscript);
  return fileBytes;
}

RomImage takeIntelHex(RomImage fileBytes) { return readIntelHex(fileBytes, imageHexCapacity); }

std::int32_t alwaysLoaded(const RomImage&) { return 1; }

std::int32_t sumOfFirstBytes(const RomImage& image) {
  if (image.size() <= lastSummed) throw Failure(badSubscript);
  return std::accumulate(image.begin() + firstSummed, image.begin() + lastSummed + 1, 0);
}

struct ComparisonForm {
  const char* location;
  const char* filter;
  Wording title;
  RomImage (*take)(RomImage fileBytes);
  std::int32_t (*loaded)(const RomImage& image);
};

const ComparisonForm raw{"COMP BIN読み込み",
                         "Bin Image (*.bin)|*.bin",
                         {"比較用　BIN Image 読み込み", "Load BIN Image For comparison"},
                         takeRaw,
                         alwaysLoaded};
const ComparisonForm intelHex{
    "Comp IntelHEX読み込み",
    "HEX Image (*.hex)|*.hex",
    {"比較用　IntelHEX Image 読み込み", "Load IntelHEX Image For comparison"},
    takeIntelHex,
    sumOfFirstBytes};

void loadSteps(const ComparisonForm& form) {
  if (refusedWithoutAddressMap()) return;
  editorState.progressCount = 0;
  const ChosenFile chosen = desktop().chooseFileToOpen(
      {form.filter, worded(form.title), settledPath(editorState.romFolder), ""});
  editorState.compareTitle = chosen.title;
  editorState.compareLoaded = 0;
  editorState.compareImage.clear();
  showOperation("READ");
  editorState.compareImage = form.take(readFile(chosen.path));
  form1().Label35.setCaption("COMP. " + chosen.title);
  editorState.compareLoaded = form.loaded(editorState.compareImage);
}

void loadComparison(const ComparisonForm& form) {
  runFileCommand(
      {form.location, [&] { loadSteps(form); },
       [](int number) { showFailure(number, "　Ill. DATA? " + editorState.compareTitle); }});
}

}  // namespace

void comp_bin() { loadComparison(raw); }

void comp_intelHex() { loadComparison(intelHex); }
