#include "imagefiles/comparison_image.h"

#include "core/dialogs.h"
#include "core/differences.h"
#include "core/editor_state.h"
#include "core/file_command.h"
#include "core/form1.h"
#include "core/refusals.h"
#include "core/settings_file.h"
#include "imagefiles/image_forms.h"
#include "platform/files.h"

namespace {

ChosenFile chosenToCompare(const ImageForm& form) {
  return desktop().chooseFileToOpen(
      {form.compare.filter, worded(form.compare.title), settledPath(editorState.romFolder), ""});
}

// A dialog asks for the file unless `path` tells it.
void loadSteps(const ImageForm& form, const std::string& path) {
  if (refusedWithoutAddressMap()) return;
  editorState.progressCount = 0;
  const ChosenFile chosen =
      path.empty() ? chosenToCompare(form) : ChosenFile{path, fileNameOf(path)};
  editorState.compareTitle = chosen.title;
  editorState.compareLoaded = 0;
  editorState.compareImage.clear();
  differencesOutdated();
  showOperation("READ");
  editorState.compareImage = form.decode(readImageFile(chosen.path));
  form1().Label35.setCaption("COMP. " + chosen.title);
  editorState.compareLoaded = form.comparable(editorState.compareImage);
  if (editorState.compareLoaded > 0) compareWith(Against::comparison);
}

void loadComparison(const ImageForm& form, const std::string& path = {}) {
  runFileCommand(
      {form.compare.location, [&] { loadSteps(form, path); },
       [](int number) { showFailure(number, "　Ill. DATA? ", editorState.compareTitle); }});
}

}  // namespace

void comp_bin() { loadComparison(rawImages); }

void comp_intelHex() { loadComparison(intelHexImages); }

void loadComparisonFrom(const std::string& path, const ImageForm& form) {
  loadComparison(form, path);
}
