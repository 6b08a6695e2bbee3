#include "core/overwrite_question.h"

#include <utility>

#include "controls/desktop.h"
#include "core/wording.h"
#include "platform/files.h"

namespace {

const Wording existsTitle{"ファイルは既に存在します。", "A file exists already."};
const Wording existsQuestion{"そのファイルは既に存在します。上書きで保存しますか？",
                             "The file exists already.Do you preserve it with overwrite coming?"};

}  // namespace

bool userOverwrites(const std::string& title) {
  const BoxAnswer answer =
      desktop().showBox({BoxIcon::question, BoxButtons::okCancel, worded(existsTitle),
                         title + "\r\n" + worded(existsQuestion), title});
  return answer == BoxAnswer::ok;
}

bool mayOverwrite(std::string path, const std::string& title) {
  return !fileExists(std::move(path)) || userOverwrites(title);
}
