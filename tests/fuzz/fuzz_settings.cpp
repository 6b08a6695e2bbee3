// Any bytes as the settings file: read without harm, and what is written afterwards reads back as
// the same settings.
#include "bed.h"
#include "core/settings_file.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzBed bed;
  const std::string path = bed.write("zelkova.ini", {reinterpret_cast<const char*>(data), size});
  readSettings();
  if (editorState.version.empty()) return 0;  // too many lines: nothing of them is taken
  writeSettings();
  const std::string first = contentOf(path);
  readSettings();
  writeSettings();
  require(contentOf(path) == first);
  return 0;
}
