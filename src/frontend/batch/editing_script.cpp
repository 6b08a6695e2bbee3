#include "frontend/batch/editing_script.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <sstream>
#include <string_view>

#include "core/address_map.h"
#include "core/editor_state.h"
#include "core/form1.h"
#include "core/loaded_image.h"
#include "core/loader_tail.h"
#include "core/map_kinds.h"
#include "core/pending_image.h"
#include "core/rom_image.h"
#include "editing/add_multiply.h"
#include "editing/cell_changes.h"
#include "editing/map_copy.h"
#include "editing/map_shift.h"
#include "editing/smoothing.h"
#include "exchange/export_files.h"
#include "frontend/headless/headless_desktop.h"
#include "frontend/languages.h"
#include "platform/numbers.h"
#include "platform/text_encoding.h"
#include "rom/address_items.h"
#include "rom/address_parse.h"

namespace {

constexpr std::int32_t noThreshold = wordLimit + 1;  // above every number of a map
constexpr float mostAmount = 65536;

using Words = std::vector<std::string>;

Words wordsOf(const std::string& line) {
  std::istringstream stream(line.substr(0, line.find('#')));
  Words words;
  for (std::string word; stream >> word;) words.push_back(word);
  return words;
}

// What is wrong with a line; its number is added where the lines are walked.
[[noreturn]] void refuse(const std::string& what) { throw Trouble(what); }

double numberIn(const std::string& text) {
  if (const auto number = parseAnswer(text)) return *number;
  refuse("\"" + text + "\" is no number");
}

const MapKind& mapNamed(const std::string& keyword) {
  const auto named = [&](const MapKind& kind) { return keyword == kind.keyword; };
  const auto kind = std::ranges::find_if(mapKinds(), named);
  if (kind == mapKinds().end()) refuse("no map is called " + keyword);
  if (!entryOf(*kind).present()) refuse("the address map doesn't have " + keyword);
  return *kind;
}

// "3", "3-6" or "*", counted from 1, as places in a grid.
std::pair<int, int> rangeIn(const std::string& text, int fixed, int count) {
  if (text == "*") return {fixed, fixed + count - 1};
  const std::size_t dash = text.find('-');
  const auto first = bareNumber(text.substr(0, dash));
  const auto last = dash == std::string::npos ? first : bareNumber(text.substr(dash + 1));
  if (!first || !last || *first < 1 || *last < *first || *last > count) {
    refuse("\"" + text + "\" is no range of 1 to " + std::to_string(count));
  }
  return {fixed + *first - 1, fixed + *last - 1};
}

// "ROWS,COLUMNS", or "*" for the whole map.
GridBlock blockIn(const std::string& text, const Grid& grid) {
  const std::size_t comma = text.find(',');
  const bool all = text == "*";
  if (!all && comma == std::string::npos) refuse("\"" + text + "\" is no ROWS,COLUMNS");
  const auto [top, bottom] =
      rangeIn(all ? text : text.substr(0, comma), grid.fixedRows(), grid.rows() - grid.fixedRows());
  const auto [left, right] = rangeIn(all ? text : text.substr(comma + 1), grid.fixedColumns(),
                                     grid.columns() - grid.fixedColumns());
  return {top, left, bottom, right};
}

// One line's map, cells and what stands behind them.
struct Line {
  const MapKind& kind;
  GridBlock block;
  Words rest;

  explicit Line(const Words& words)
      : kind(mapNamed(at(words, 1))),
        block(blockIn(at(words, 2), gridOf(kind))),
        rest(words.begin() + 3, words.end()) {}

  // Takes "below N" off the end.
  std::optional<std::int32_t> takeThreshold() {
    if (rest.size() < 2 || rest[rest.size() - 2] != "below") return {};
    const double number = numberIn(rest.back());
    rest.resize(rest.size() - 2);
    return roundClamped(number);
  }
  double takeNumber() {
    if (rest.empty()) refuse("a number is missing");
    const double number = numberIn(rest.front());
    rest.erase(rest.begin());
    return number;
  }
  bool take(const char* word) {
    if (rest.empty() || rest.front() != word) return false;
    rest.erase(rest.begin());
    return true;
  }
  void requireNoMore() const {
    if (!rest.empty()) refuse("what is \"" + rest.front() + "\" for?");
  }
  void select() const {
    gridOf(kind).setSelection({block.top, block.left, block.bottom, block.right});
  }
  static const std::string& at(const Words& words, std::size_t place) {
    if (place >= words.size()) refuse("a map and its cells are missing");
    return words[place];
  }
};

void set(Line& line) {
  const auto below = line.takeThreshold();
  const double number = line.takeNumber();
  line.requireNoMore();
  setCells({line.kind, line.block, below}, number);
}

void percent(Line& line) {
  const auto below = line.takeThreshold();
  const double by = std::round(line.takeNumber() * wholePercent);
  const bool atLeastOne = line.take("step");
  line.requireNoMore();
  if (by < leastPercentage || by > mostPercentage) refuse("-100 to 1000 percent");
  changeCellsByPercentage({line.kind, line.block, below}, static_cast<Percentage>(by), atLeastOne);
}

void interpolate(Line& line) {
  const auto below = line.takeThreshold();
  std::optional<Fill> fill;
  if (line.take("across")) fill = Fill::across;
  if (line.take("down")) fill = Fill::down;
  if (line.take("both")) fill = Fill::both;
  if (!fill) refuse("interpolate goes across, down or both");
  const Spacing spacing = line.take("even") ? Spacing::even : Spacing::byScale;
  line.requireNoMore();
  interpolateCells({line.kind, line.block, below}, *fill, spacing);
}

// The commands of the maps that have a tab.
void requireTab(const Line& line) {
  if (!line.kind.ownsTab()) refuse(std::string(line.kind.keyword) + " takes no such command");
}

void add(Line& line) {
  const auto below = line.takeThreshold();
  const float amount = realClamped(line.takeNumber());
  line.requireNoMore();
  requireTab(line);
  if (std::abs(amount) > mostAmount) refuse("no amount beyond 65536");
  line.select();
  DEC_DATA(line.kind.tab, below.value_or(noThreshold), amount);
}

void multiply(Line& line) {
  const auto below = line.takeThreshold();
  const float factor = realClamped(line.takeNumber());
  line.requireNoMore();
  requireTab(line);
  if (factor < 0) refuse("no factor below 0");
  line.select();
  multiplyData(line.kind.tab, below.value_or(noThreshold), factor);
}

void smooth(Line& line) {
  const auto below = line.takeThreshold();
  line.requireNoMore();
  if (!line.kind.isByteMap()) refuse(std::string(line.kind.keyword) + " can't be smoothed");
  line.select();
  SMOOTH_DATA(line.kind, below.value_or(noThreshold));
}

// "parameter REV1_LIMIT 7200"
void parameter(const Words& words) {
  if (words.size() != 3) refuse("parameter takes a keyword and a value");
  const auto named = [&](const ParamKind& kind) { return words[1] == kind.keyword; };
  const auto kind = std::ranges::find_if(paramKinds(), named);
  if (kind == paramKinds().end()) refuse("no parameter is called " + words[1]);
  const ParamEntry& entry = editorState.addressMap.param(kind->id);
  if (!entry.present() || !editorState.paramShown[static_cast<std::size_t>(kind->id)]) {
    refuse("the address map and the image don't have " + words[1]);
  }
  if (kind->scaled()) {
    const double stored = std::floor(numberIn(words[2]) / double{entry.scale});
    if (!(stored >= 0 && stored < std::exp2(8.0 * entry.bytes))) {
      refuse(words[1] + " has no room for " + words[2]);
    }
  } else if (words[2].size() != 2 * static_cast<std::size_t>(entry.bytes) ||
             words[2].find_first_not_of("0123456789ABCDEFabcdef") != std::string::npos) {
    refuse(words[1] + " takes " + std::to_string(2 * entry.bytes) + " hexadecimal digits");
  }
  (form1().*kind->box).setText(words[2]);
}

// "shift HIGH_FUEL left scale"
void shift(const Words& words) {
  const bool left = words.size() > 2 && words[2] == "left";
  const bool right = words.size() > 2 && words[2] == "right";
  const bool scale = words.size() == 4 && words[3] == "scale";
  if (!(left || right) || words.size() > (scale ? 4U : 3U)) {
    refuse("shift takes a map, left or right, and \"scale\" to take the load scale along");
  }
  const MapKind& kind = mapNamed(words[1]);
  if (!kind.isByteMap()) refuse(words[1] + " can't be shifted");
  if (scale && !loadScaleBeside(kind.tab)) refuse(words[1] + " has no load scale beside it");
  form11.directions.select(left ? &form11.Option1 : &form11.Option2);
  shiftMap(kind, scale);
}

// "copy HIGH_FUEL REG_FUEL"
void copy(const Words& words) {
  if (words.size() != 3) refuse("copy takes a map and its counterpart");
  const MapKind& source = mapNamed(words[1]);
  const MapKind& target = mapNamed(words[2]);
  if (!copyOverCounterpart(source.id, target.id)) {
    refuse(words[2] + " is not the counterpart of " + words[1]);
  }
}

// Commands without cells.
struct WholeCommand {
  const char* name;
  void (*run)(const Words& words);
};
constexpr std::array<WholeCommand, 3> wholeCommands{
    {{"parameter", parameter}, {"shift", shift}, {"copy", copy}}};

struct Command {
  const char* name;
  void (*run)(Line& line);
};
constexpr std::array<Command, 6> commands{{{"set", set},
                                           {"add", add},
                                           {"multiply", multiply},
                                           {"percent", percent},
                                           {"interpolate", interpolate},
                                           {"smooth", smooth}}};

void run(const Words& words) {
  const auto named = [&](const auto& each) { return words.front() == each.name; };
  const auto whole = std::ranges::find_if(wholeCommands, named);
  if (whole != wholeCommands.end()) return whole->run(words);
  const auto command = std::ranges::find_if(commands, named);
  if (command == commands.end()) {
    refuse("unknown command \"" + words.front() +
           "\"; there are set, add, multiply, percent, interpolate, smooth, shift, copy and "
           "parameter");
  }
  Line line(words);
  command->run(line);
}

// What the windows would have told in a box.
void requireNoBox(const HeadlessDesktop& desktop) {
  if (!desktop.boxes.empty()) refuse(desktop.boxes.front().text);
}

void load(const Bytes& image, const std::string& mapText) {
  editorState.gridColorRate = 1;
  takeItems(mapText, editorState.lines, editorState.lineCount);
  applyAddressMap(
      parseAddressMap(editorState.lines, static_cast<std::size_t>(editorState.lineCount)));
  takeImage(image);
  loaderTail();
}

void requireStorable() {
  pendingImage.rebuild();
  for (const MapKind& kind : mapKinds()) {
    if (pendingImage.firstRefused(kind)) {
      refuse(std::string(kind.keyword) + " would hold a number that the image can't take");
    }
  }
}

}  // namespace

Bytes edited(const Bytes& image, const std::string& mapText, const std::string& script,
             const std::string& scriptPath) {
  HeadlessDesktop desktop;
  useDesktop(&desktop);
  std::size_t number = 0;
  editorState.english = 1;
  try {
    load(image, mapText);
    requireNoBox(desktop);
    for (const std::string& line : splitLines(script)) {
      ++number;
      const Words words = wordsOf(line);
      if (words.empty()) continue;
      run(words);
      requireNoBox(desktop);
    }
    requireStorable();
    writeBackAll();
    requireNoBox(desktop);
  } catch (const Trouble& what) {
    const std::string line = number > 0 ? ":" + std::to_string(number) : std::string();
    throw Trouble(scriptPath + line + ": " + what.what());
  }
  useDesktop(nullptr);
  return editorState.image;
}

std::string reportOf(const Bytes& image, const std::string& mapText, const std::string& title,
                     bool japanese) {
  HeadlessDesktop desktop;
  useDesktop(&desktop);
  editorState.english = japanese ? 0 : 1;
  CHANGE_CAPT(editorState.english);
  load(image, mapText);
  requireNoBox(desktop);
  editorState.imageTitle = title;
  std::string page = reportText();
  useDesktop(nullptr);
  return page;
}
