// A tireless user: a seeded random walk over every window, control, menu row, key, answer, load and
// save of the headless program. A walk is replayed by ZELKOVA_SEED.
#pragma once

#include <algorithm>
#include <cstdlib>
#include <random>
#include <set>
#include <span>

#include "changes/differences_window.h"
#include "frontend/splash.h"
#include "frontend/startup.h"
#include "rom/intel_hex_writer.h"
#include "support.h"

using Text = const char*;

inline int fromEnvironment(Text name, int otherwise) {
  const Text text = std::getenv(name);
  return text ? std::atoi(text) : otherwise;
}

inline constexpr int roomyImage = 8209;  // a pair of the smallest size and some more
inline constexpr Text imageNames[] = {"a.bin", "b.bin", "c.hex", "d.hex", "odd.bin", "even.hex"};
inline constexpr Text mapNames[] = {"map0.adr", "map1.adr", "map2.adr", "map3.adr", "junk.adr"};
inline constexpr Text speedScales[] = {"1", "12", "25", "50", "&H64", "-50"};
inline constexpr Text limitScales[] = {"1", "2", "100", "12.5", "0.3", "-4"};
inline constexpr char32_t keys[] = {U'+', U'-', U'x', U'語'};
inline constexpr Text texts[] = {"0",
                                 "1",
                                 "12",
                                 "100",
                                 "255",
                                 "256",
                                 "65535",
                                 "65536",
                                 "-5",
                                 "12.5",
                                 "1.5",
                                 "8",
                                 "0.25",
                                 "1e3",
                                 "1e400",
                                 "-",
                                 " 7 ",
                                 "99999999999",
                                 "abc",
                                 "",
                                 "FF",
                                 "1G",
                                 "00",
                                 "車",
                                 "4",
                                 "10,20,30,1,0",
                                 "\t\r\n",
                                 "2.5e1",
                                 "0x10",
                                 "+3",
                                 "--5",
                                 "A5",
                                 "７",
                                 "1 2",
                                 "1,2147483647,9",
                                 "&H10"};

// Whether a file is the image, raw or as far as it counts as Intel HEX, or one half of it in either
// form.
inline bool holdsImage(const Bytes& file, const Bytes& image, std::int32_t imageSize) {
  const std::string text(file.begin(), file.end());
  const auto size = static_cast<std::size_t>(std::max(imageSize, 0));
  if (size == 0 || image.size() < size) return false;
  Bytes halves[] = {Bytes(size, 0xFF), Bytes(size, 0xFF)};
  for (std::size_t k = 0; k < size / 2 * 2; ++k) halves[k % 2][k / 2] = image[k];
  const auto isHalf = [&](const Bytes& half) { return file == half || text == intelHexText(half); };
  return file == image || text == intelHexText(std::span(image).first(size)) ||
         std::ranges::any_of(halves, isHalf);
}

class TirelessUser : public ProgramTest {
 protected:
  // A whole number from `low` to `high`, both included; the same on every system.
  int number(int low, int high) {
    return low + static_cast<int>(random() % static_cast<std::uint32_t>(high - low + 1));
  }
  bool chance(int percent) { return number(1, 100) <= percent; }
  template <class Items>
  auto& oneOf(Items& items) {
    return items[static_cast<std::size_t>(number(0, static_cast<int>(std::size(items)) - 1))];
  }

  // An address map whose entries all lie within `imageBytes` (40 at least), as they come: they
  // overlap, reach the last byte, or are absent. No scale is 0.
  std::string randomAddressMap(int imageBytes) {
    std::vector<std::string> blocks;
    const auto add = [&](Text keyword, int columns, int rows, int bytes, const std::string& scale) {
      if (chance(30)) return;
      const int highest = imageBytes - bytes;
      const int address = chance(20) ? highest : number(0, highest);
      blocks.insert(blocks.begin() + number(0, static_cast<int>(blocks.size())),
                    mapBlock(keyword, std::to_string(address), columns, rows, bytes, scale));
    };
    for (const MapKind& kind : mapKinds()) {
      const bool airflow = kind.family == MapFamily::airflow;
      const bool oneRow = (airflow || kind.isScale()) && number(1, 30) > 1;
      const int columns = number(1, 16);
      const int rows = oneRow ? 1 : number(1, std::min(17, imageBytes / columns));
      const int bytes =
          airflow ? number(1, std::min(130, imageBytes)) : columns * (kind.isScale() ? 1 : rows);
      add(kind.keyword, columns, rows, bytes,
          kind.family == MapFamily::rpmScale ? oneOf(speedScales) : std::to_string(number(1, 7)));
    }
    for (const ParamKind& kind : paramKinds()) {
      add(kind.keyword, 1, 1, number(1, kind.scaled() ? 4 : 9), oneOf(limitScales));
    }
    std::string text = "TYPE_UNIT\r\nRandom car\r\n";
    for (const std::string& block : blocks) text += block;
    return text;
  }

  // Maps that crowd a small image and roomy ones; images of all sizes.
  void begin() {
    end();
    desk.ended = false;
    int reach = 40;
    for (Text name : mapNames) {
      writeText(name, randomAddressMap(reach));
      reach = reach < roomyImage ? reach * 5 : 40;
    }
    writeBytes("junk.adr", patternImage(300));
    for (Text name : imageNames) {
      const int size = chance(50) ? number(40, 1500) : roomyImage;
      writeBytes(
          name, patternImage(static_cast<std::size_t>(size), static_cast<std::uint32_t>(random())));
    }
    writeText("zelkova.ini", firstSettings(oneOf(mapNames)));
    desk.whileAsking = [this] { answer(); };
    startProgram(folder);
    ASSERT_EQ(desk.shownWindows, std::vector<Window*>{&frmSplash});
    desk.boxes.clear();
  }

  // The list of differences stands beside it.
  Window& front() const {
    const auto beside = [](const Window* window) { return !window->standsBeside(); };
    return **std::find_if(desk.shownWindows.rbegin(), desk.shownWindows.rend(), beside);
  }

  // Puts one answer of each kind ready; while the question stands no window may take input.
  void answer() {
    for (Window* window : desk.shownWindows) EXPECT_FALSE(window->takesInput()) << window->name();
    const auto ready = [this](const auto& dialogs, Text otherwise) {
      const bool map = !dialogs.empty() && dialogs.back().filter.find("adr") != std::string::npos;
      const std::string name = map ? oneOf(mapNames) : oneOf(imageNames);
      return chance(10) ? "" : chance(5) ? path(otherwise) : path(name);
    };
    desk.openAnswers = {ready(desk.openDialogs, chance(50) ? "." : "missing.bin")};
    desk.saveAnswers = {ready(desk.saveDialogs, "a.bin")};
    desk.textAnswers = {oneOf(texts)};
    desk.folderAnswers = {chance(50) ? folder : ""};
    if (desk.boxes.empty()) return;
    const bool yesNo = desk.boxes.back().buttons == BoxButtons::yesNo;
    desk.boxAnswers = {chance(70) ? (yesNo ? BoxAnswer::yes : BoxAnswer::ok)
                                  : (yesNo ? BoxAnswer::no : BoxAnswer::cancel)};
  }

  void workOn(Grid& grid) {
    const int kind = number(0, 4);
    if (kind == 0) return grid.userDoubleClick();
    if (kind == 1) {
      chance(70) ? grid.userKey(oneOf(keys)) : grid.userControlKey(oneOf(keys));
      return grid.userKeyUp();
    }
    if (kind == 2) return grid.userMouseDown(MouseButton::right);
    const auto row = [&] { return number(-1, grid.rows()); };
    const auto column = [&] { return number(-1, grid.columns()); };
    grid.userSelect({row(), column(), row(), column()});
  }
  void drawOn(Canvas& canvas) {
    const int key = number(leftKey, downKey);
    if (chance(20)) return canvas.userClick(number(-9, 700), number(-9, 500));
    canvas.userKeyDown(key);
    chance(70) ? canvas.userKey(oneOf(keys)) : canvas.userControlKey(oneOf(keys));
    if (chance(80)) canvas.userKeyUp(key);
  }
  void pickRow(MenuItem& item) {
    if (!item.children().empty() || !item.onClick) return;
    if (chance(10)) desk.clipboard = chance(50) ? oneOf(texts) : "1\t2,5\n3\t400";
    lastPicked = item.name();
    picked.insert(lastPicked);
    if (lastPicked != "owari" || chance(10)) item.userPick();
  }
  // Whatever can be done to a control.
  void touch(Control& control) {
    if (auto* const button = dynamic_cast<Button*>(&control)) {
      button->userClick();
    } else if (auto* const item = dynamic_cast<MenuItem*>(&control)) {
      pickRow(*item);
    } else if (auto* const grid = dynamic_cast<Grid*>(&control)) {
      workOn(*grid);
    } else if (auto* const check = dynamic_cast<CheckBox*>(&control)) {
      check->userMouseDown();
      check->userToggle();
    } else if (auto* const box = dynamic_cast<TextBox*>(&control)) {
      box->userFocus();
      box->userEdit(oneOf(texts), chance(70) ? TextBox::By::keys : TextBox::By::other);
    } else if (auto* const option = dynamic_cast<Option*>(&control)) {
      option->userMouseDown();
      option->userSelect();
    } else if (auto* const list = dynamic_cast<ListBox*>(&control)) {
      list->userMouseDown();
      list->userSelect(number(-1, static_cast<int>(list->items().size())));
    } else if (auto* const canvas = dynamic_cast<Canvas*>(&control)) {
      drawOn(*canvas);
    } else if (auto* const tabs = dynamic_cast<TabStrip*>(&control)) {
      tabs->userSelect(number(0, 15));
    } else if (auto* const label = dynamic_cast<Label*>(&control)) {
      label->userClick();
    } else if (auto* const timer = dynamic_cast<Timer*>(&control)) {
      timer->fire();
    }
  }
  template <class Kind>
  void touchAny(Window& window) {
    std::vector<Control*> all;
    for (Control* control : window.controls()) {
      if (dynamic_cast<Kind*>(control)) all.push_back(control);
    }
    if (!all.empty()) touch(*oneOf(all));
  }
  // A dialog in front keeps everything in the main window as it is.
  void knockAtForm1() {
    const std::int32_t tab = editorState.currentTab;
    touchAny<Control>(form1());
    ASSERT_EQ(editorState.currentTab, tab);
    ASSERT_TRUE(desk.boxes.empty() && desk.prompts.empty());
  }

  // One gesture of the table, by its share in the main window or in another.
  void step() {
    using User = TirelessUser;
    static constexpr struct {
      int inMain, inOther;
      void (*act)(User&, Window&);
    } gestures[] = {
        {350, 20, [](User& user, Window& in) { user.touchAny<MenuItem>(in); }},
        {350, 0, [](User& user, Window&) { user.pickAgain(); }},
        {100, 0, [](User& user, Window& in) { user.touchAny<TabStrip>(in); }},
        {100, 200, [](User& user, Window& in) { user.touchAny<TextBox>(in); }},
        {100, 200, [](User& user, Window& in) { user.touchAny<Grid>(in); }},
        {0, 100, [](User& user, Window& in) { user.touchAny<Canvas>(in); }},
        {0, 200, [](User& user, Window& in) { user.touchAny<Button>(in); }},
        {97, 200, [](User& user, Window& in) { user.touchAny<Control>(in); }},
        {200, 0,
         [](User& user, Window&) {
           if (Grid* grid = activeGrid()) user.workOn(*grid);
         }},
        {3, 60, [](User&, Window& in) { in.userClose(); }},
        {0, 30, [](User&, Window& in) { in.userEscape(); }},
        {0, 90, [](User&, Window& in) { in.userEnter(); }},
        {0, 30, [](User&, Window& in) { in.userKey(); }},
    };
    Window& window = differencesWindow.takesInput() && chance(10) ? differencesWindow : front();
    const bool main = &window == &form1();
    if (!main && !window.standsBeside() && &window != &frmSplash && chance(10)) knockAtForm1();
    int whole = 0;
    for (const auto& gesture : gestures) whole += main ? gesture.inMain : gesture.inOther;
    int left = number(1, whole);
    lastPicked.clear();
    const auto* gesture = gestures;
    while ((left -= main ? gesture->inMain : gesture->inOther) > 0) ++gesture;
    gesture->act(*this, window);
  }
  void pickAgain() {
    const bool empty = editorState.imageSize == 0;
    pickRow(*form1().menuBar.find(empty ? "load_bin_file" : chance(50) ? "undo" : "redo"));
  }

  std::mt19937 random{static_cast<std::uint32_t>(fromEnvironment("ZELKOVA_SEED", 7))};
  std::set<std::string> picked;
  std::string lastPicked;
};
