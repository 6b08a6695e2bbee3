#include "core/own_files.h"

#include <array>
#include <cstddef>

#include "core/notices.h"
#include "core/wording.h"

namespace {

struct Names {
  const char* subject;
  Wording name;
};

constexpr std::array<Names, 5> names{{
    {"settings", {"設定ファイルzelkova.ini", "The settings file zelkova.ini"}},
    {"log", {"ログerror.log", "The log error.log"}},
    {"recent files", {"最近使ったファイルのリスト", "The list of recent files"}},
    {"recent maps", {"最近のアドレスマップのリスト", "The list of recent address maps"}},
    {"look", {"表示の設定", "How maps are shown"}},
}};

const Names& namesOf(OwnFile file) { return names[static_cast<std::size_t>(file)]; }

}  // namespace

void tellNotWritten(OwnFile file, const std::string& why) {
  const Names& own = namesOf(file);
  const std::string reason = why.empty() ? "" : ": " + why;
  tellNotice({own.subject,
              NoticeKind::warning,
              {std::string(own.name.japanese) + "に書き込めません" + reason,
               std::string(own.name.english) + " can't be written" + reason}});
}

void tellWritten(OwnFile file) { withdrawNotice(namesOf(file).subject); }
