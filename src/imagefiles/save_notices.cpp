#include "imagefiles/save_notices.h"

#include <string>

#include "core/earlier_states.h"
#include "core/editor_state.h"
#include "core/notices.h"
#include "core/pending_image.h"
#include "imagefiles/earlier_states_window.h"
#include "platform/failure.h"
#include "platform/files.h"
#include "rom/intel_hex_reader.h"

namespace {

constexpr const char* failedSubject = "save failed";
constexpr const char* keptSubject = "edits kept";
constexpr const char* contentsSubject = "what a save holds";

}  // namespace

void tellNotSaved(int failure) {
  const std::string what = numberedFailure(failure);
  const std::string& title = editorState.imageTitle;
  withdrawNotice(failedSubject);  // closed or not, this is another failure
  tellNotice({failedSubject,
              NoticeKind::trouble,
              {title + "を保存できませんでした。" + what, title + " was not saved: " + what}});
}

void tellFormHoldsNot(const std::string& path, ImageFileForm form) {
  const std::string name = fileNameOf(path);
  const std::string what = form == ImageFileForm::intelHex ? "IntelHEX" : "S-record";
  withdrawNotice(failedSubject);
  tellNotice({failedSubject,
              NoticeKind::trouble,
              {name + "を保存できませんでした。" + what +
                   "ではこのアドレスのイメージを表せません。別名保存を使ってください。",
               name + " was not saved: " + what +
                   " can't hold an image at these addresses. Use one of the Save as commands."}});
}

void tellSaved() {
  withdrawNotice(failedSubject);
  withdrawNotice(contentsSubject);
}

void tellLongIntelHex(std::size_t bytes) {
  if (bytes <= static_cast<std::size_t>(imageHexCapacity)) return;
  const std::string most = std::to_string(imageHexCapacity);
  tellNotice({contentsSubject,
              NoticeKind::warning,
              {"「読み込み(IntelHEX)」は" + most +
                   "バイトまでしか読めません。このファイルは「任意の形式の読み込み」で読めます。",
               "Load (IntelHEX) takes at most " + most +
                   " bytes: it can't load this file again. Exchange > Load any form can."}});
}

void tellEditsKept() {
  if (!hasEarlierStates() || pendingImage.unsavedBytes() == 0) return;
  const std::string& title = editorState.imageTitle;
  tellNotice({keptSubject,
              NoticeKind::warning,
              {title + "の編集内容は「以前の状態」に残っています。",
               "The edits of " + title + " are kept among the earlier states."},
              {{{"以前の状態", "Earlier states"}, [] {
                  withdrawNotice(keptSubject);
                  showEarlierStates();
                }}}});
}

void tellPartSaved(std::size_t bytes) {
  if (bytes >= editorState.image.size()) return;
  const std::string left = std::to_string(editorState.image.size() - bytes);
  tellNotice({contentsSubject,
              NoticeKind::warning,
              {"奇数/偶数ファイルには最後の" + left + "バイトが入っていません。",
               "The odd and even files don't hold the last " + left + " bytes of the image."}});
}
