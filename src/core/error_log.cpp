#include "core/error_log.h"

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <vector>

#include "core/editor_state.h"
#include "core/form1.h"
#include "core/own_files.h"
#include "core/text_files.h"
#include "platform/clock.h"
#include "platform/failure.h"
#include "platform/files.h"
#include "platform/numbers.h"
#include "platform/text_encoding.h"

namespace {

constexpr std::size_t readableLines = 256;
constexpr std::size_t keptLines = 249;

bool hasTooManyLines(std::string_view bytes) { return splitLines(bytes).size() > readableLines; }

void addLine(const std::string& line) {
  const std::string path = joinPath(editorState.appPath, "error.log");
  std::vector<std::string> lines = splitLines(readTextFile(path, hasTooManyLines));
  if (lines.size() > readableLines) throw Failure(badSubscript);
  lines.insert(lines.begin(), line);
  lines.resize(std::min(lines.size(), keptLines));
  std::string text;
  for (const std::string& each : lines) text += each + "\r\n";
  replaceTextFile(path, text);
}

// A log that isn't there is not wanted.
void tellOutcome(int failure) {
  if (failure == 0 || failure == fileNotFound) return tellWritten(OwnFile::log);
  tellNotWritten(OwnFile::log, numberedFailure(failure));
}

}  // namespace

void logError(const std::string& location, int number, const std::string& text) {
  if (number != 0 && number != cancelled) {
    const std::string line =
        localTime("%y/%m/%d %H:%M") + " " + location + " " + signedBlank(number) + " " + text;
    tellOutcome(trapFailure([&line] { addLine(line); }));
  }
  form1().refresh();
}
