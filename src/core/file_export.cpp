#include "core/file_export.h"

#include <cstddef>
#include <cstdint>

#include "controls/svg.h"
#include "core/dialogs.h"
#include "core/earlier_states.h"
#include "core/editor_state.h"
#include "core/extensions.h"
#include "core/file_command.h"
#include "core/overwrite_question.h"
#include "core/wording.h"
#include "platform/failure.h"

namespace {

struct Reason {
  int number;
  Wording text;
};

constexpr Reason reasons[] = {
    {diskFull, {"ディスクに空きがありません。", "The disk is full."}},
    {pathFileAccess, {"ここには書き込めません。", "Nothing can be written there."}},
    {pathNotFound, {"フォルダーがありません。", "There is no such folder."}},
};

// In words, where there are some.
std::string reasonOf(int number) {
  for (const auto& [of, text] : reasons) {
    if (of == number) return ' ' + worded(text) + '\n';
  }
  return {};
}

}  // namespace

const char* const pictureFilter = "SVG (*.svg)|*.svg|PNG (*.png)|*.png";

std::string exportName() {
  const std::string& title = editorState.imageTitle;
  const std::size_t point = title.rfind('.');
  return point == std::string::npos || point == 0 ? title : title.substr(0, point);
}

void exportFile(const char* location, const FileDialog& dialog,
                const std::function<std::string(const std::string& path)>& contents) {
  std::string path;
  const auto steps = [&] {
    const ChosenFile file = desktop().chooseFileToSave(dialog);
    path = file.path;
    if (!mayOverwrite(path, file.title)) throw Failure(cancelled);
    const std::string bytes = contents(path);
    replaceUserFile(path, {reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()});
  };
  runFileCommand(
      {location, steps, [&](int number) { showFailure(number, reasonOf(number), path); }});
}

std::string pictureFile(const Picture& picture, const std::string& path) {
  return extensionOf(path) == "PNG" ? desktop().pngOf(picture) : svgText(picture);
}
