#include "imagefiles/recent_loading.h"

#include <cstddef>
#include <string>

#include "core/dialogs.h"
#include "core/editor_state.h"
#include "core/file_command.h"
#include "core/form1.h"
#include "core/loaded_image.h"
#include "core/loader_tail.h"
#include "core/refusals.h"
#include "core/title_and_size.h"
#include "core/unsaved_guard.h"
#include "imagefiles/any_form.h"
#include "imagefiles/file_watch.h"
#include "imagefiles/image_forms.h"
#include "imagefiles/recent_files.h"
#include "platform/failure.h"
#include "platform/files.h"

namespace {

const Wording unknownTitle{"Detected error.This error is not fatal.", "Error"};
const Wording unknownExtension{"その拡張子は判断できません。\r\n",
                               "The extension child can judge it."};
const Wording isGone{"ファイルが存在しません。\r\nファイルが削除されたか、移動されています。\r\n",
                     "A file don't exist.  Are transported whether a file were deleted or not."};
const Wording isOutOfReach{"そのファイルは存在しません。または、ディスクが存在しません。",
                           "The file don't exist.  Or, a disk don't exist."};
const Wording otherAddressFile{
    "アドレスファイルが違う可能性があります。\r\n"
    "正しいadrファイルを読み直し後に、データの読み込みを行って下さい。",
    "There is a possibility that an address file differs from.  Please be crowded as reading of "
    "data, after reading again a correct adr file."};

void showCritical(const std::string& text) {
  desktop().showBox({BoxIcon::critical, BoxButtons::ok, failureTitle, text});
}

void tellFailure(int number, const std::string& entryName) {
  if (number == fileNotFound) return showCritical(worded(isGone) + entryName);
  if (number == diskNotReady) return showCritical(worded(isOutOfReach));
  if (number == badSubscript) showCritical(worded(otherAddressFile));
  showFailure(number, "　Ill. DATA? ", entryName, BoxIcon::none);
}

void loadSteps(const std::string& path, const ImageForm& form) {
  editorState.dialogPath = path;
  if (form.recentFillsBar) {
    editorState.progressCount = 0;
  } else {
    desktop().setBusyPointer(true);
  }
  dropImage();
  form1().Label13.setCaption("READ");
  form1().refresh();
  const RomImage records = takeDecoded(form, readWatched(path));
  if (path.find_first_of("\\/") != std::string::npos) editorState.dialogTitle = fileNameOf(path);
  nameImage();
  showFileSize();
  loaderTail();
  tellIfReadOtherwise(path, records);
}

// A load that failed leaves the progress bar where it stood.
void load(const std::string& path, const ImageForm& form) {
  ProgressBar& bar = form1().ProgressBar1;
  int reached = 0;
  const auto tell = [&](int failure) {
    tellFailure(failure, fileNameOf(path));
    offerAnyForm(form, path, failure);
  };
  const int number = runFileCommand({"Recent File読み込み", [&] { loadSteps(path, form); }, tell,
                                     [&](int) { reached = bar.value(); }});
  if (number != 0) bar.setValue(reached);
}

}  // namespace

void mnuRecentFile_Click(int index) {
  if (refusedWithoutAddressMap()) return;
  const std::string path = form1().mnuRecentFile.at(static_cast<std::size_t>(index))->caption();
  if (const auto base = recentBase(path)) return loadAnyFormFrom(path, base);
  const ImageForm* form = imageFormOf(path);
  if (!form) {
    desktop().showBox(
        {BoxIcon::none, BoxButtons::ok, worded(unknownTitle), worded(unknownExtension)});
    return;
  }
  confirmDiscard();
  if (editorState.guardAnswer != 0) load(path, *form);
}
