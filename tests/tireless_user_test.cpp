// A tireless user: a seeded random walk over every window, control, menu row, key, answer, load and
// save of the headless program, with what must hold after each gesture. A walk is replayed by
// ZELKOVA_SEED and made longer by ZELKOVA_GESTURES.
#include <algorithm>
#include <cstdlib>
#include <random>
#include <set>

#include "changes/differences_window.h"
#include "controls/gesture.h"
#include "core/differences.h"
#include "core/global_parameters.h"
#include "core/history.h"
#include "core/map_display.h"
#include "core/map_kinds.h"
#include "core/pending_image.h"
#include "core/progress.h"
#include "core/rom_image.h"
#include "core/step.h"
#include "frontend/environment.h"
#include "frontend/splash.h"
#include "frontend/startup.h"
#include "walk_watch.h"

namespace {

using Random = std::mt19937;

// A whole number from `low` to `high`, both included; the same on every system.
int randomNumber(Random& random, int low, int high) {
  return low + static_cast<int>(random() % static_cast<std::uint32_t>(high - low + 1));
}

template <class Items>
auto& oneOf(Random& random, Items& items) {
  const int last = static_cast<int>(std::size(items)) - 1;
  return items[static_cast<std::size_t>(randomNumber(random, 0, last))];
}

// An address map whose entries all lie within `imageBytes` (40 at least), as they come: they
// overlap, reach the last byte, or are absent. No scale is 0.
std::string randomAddressMap(Random& random, int imageBytes) {
  static constexpr const char* speedScales[] = {"1", "12", "25", "50", "&H64", "-50"};
  static constexpr const char* limitScales[] = {"1", "2", "100", "12.5", "0.3", "-4"};
  const auto number = [&](int low, int high) { return randomNumber(random, low, high); };
  std::vector<std::string> blocks;
  const auto add = [&](const char* keyword, int columns, int rows, int bytes,
                       const std::string& scale) {
    if (number(1, 10) <= 3) return;
    const int highest = imageBytes - bytes;
    const int address = number(1, 5) == 1 ? highest : number(0, highest);
    const int place = number(0, static_cast<int>(blocks.size()));
    blocks.insert(blocks.begin() + place,
                  mapBlock(keyword, std::to_string(address), columns, rows, bytes, scale));
  };
  for (const MapKind& kind : mapKinds()) {
    const bool airflow = kind.family == MapFamily::airflow;
    const bool oneRow = (airflow || kind.isScale()) && number(1, 30) > 1;
    const int columns = number(1, 16);
    const int rows = oneRow ? 1 : number(1, std::min(17, imageBytes / columns));
    const int bytes =
        airflow ? number(1, std::min(130, imageBytes)) : columns * (kind.isScale() ? 1 : rows);
    const std::string scale = kind.family == MapFamily::rpmScale ? oneOf(random, speedScales)
                                                                 : std::to_string(number(1, 7));
    add(kind.keyword, columns, rows, bytes, scale);
  }
  for (const ParamKind& kind : paramKinds()) {
    const int bytes = number(1, kind.scaled() ? 4 : 9);
    add(kind.keyword, 1, 1, bytes, oneOf(random, limitScales));
  }
  std::string text = "TYPE_UNIT\r\nRandom car\r\n";
  for (const std::string& block : blocks) text += block;
  return text;
}

int fromEnvironment(const char* name, int otherwise) {
  const char* const text = std::getenv(name);
  return text ? std::atoi(text) : otherwise;
}

constexpr int newCars = 250;      // gestures until all files are made anew
constexpr int roomyImage = 8209;  // a pair of the smallest size and some more
constexpr std::int32_t largestImage = 1 << 20;
const char* const imageNames[] = {"a.bin", "b.bin", "c.hex", "d.hex", "odd.bin", "even.hex"};
const char* const mapNames[] = {"map0.adr", "map1.adr", "map2.adr", "map3.adr", "junk.adr"};
const char* const texts[][6] = {
    {"0", "1", "12", "100", "255", "256"},
    {"65535", "65536", "-5", "12.5", "1.5", "8"},
    {"0.25", "1e3", "1e400", "-", " 7 ", "99999999999"},
    {"abc", "", "FF", "1G", "00", "車"},
    {"4", "100", "0", "\t\r\n", "10,20,30,40,1,1", "1,2,2147483647,2147483647"}};

class TirelessUser : public ProgramTest {
 protected:
  int number(int low, int high) { return randomNumber(random, low, high); }
  bool chance(int percent) { return number(1, 100) <= percent; }
  const char* text() { return oneOf(random, oneOf(random, texts)); }

  // Maps that crowd a small image and roomy ones; images of all sizes.
  void begin() {
    for (Window* window : std::vector<Window*>(desk.shownWindows)) {
      if (window != &form1()) window->unload();
    }
    discardForm1();
    editorState = EditorState{};
    desk.ended = false;
    desk.shownWindows.clear();
    int reach = 40;
    for (const char* name : mapNames) {
      writeText(name, randomAddressMap(random, reach));
      reach = reach < roomyImage ? reach * 5 : 40;
    }
    writeBytes("junk.adr", patternImage(300));
    for (const char* name : imageNames) {
      const int size = chance(50) ? number(40, 1500) : roomyImage;
      writeBytes(
          name, patternImage(static_cast<std::size_t>(size), static_cast<std::uint32_t>(random())));
    }
    writeText("zelkova.ini", firstSettings(oneOf(random, mapNames)));
    desk.whileAsking = [this] { answer(); };
    startProgram(folder);
    ASSERT_EQ(desk.shownWindows, std::vector<Window*>{&frmSplash});
    desk.boxes.clear();
    files = FolderWatch{};
    files.broken(folder);
  }

  // The list of differences stands beside it.
  Window& front() const {
    const auto beside = [](const Window* window) { return !window->standsBeside(); };
    return **std::find_if(desk.shownWindows.rbegin(), desk.shownWindows.rend(), beside);
  }

  // Puts one answer of each kind ready; while the question stands no window may take input.
  void answer() {
    for (Window* window : desk.shownWindows) EXPECT_FALSE(window->takesInput()) << window->name();
    const auto ready = [this](const auto& dialogs, const char* otherwise) {
      const bool map = !dialogs.empty() && dialogs.back().filter.find("adr") != std::string::npos;
      const std::string name = map ? oneOf(random, mapNames) : oneOf(random, imageNames);
      return chance(10) ? "" : chance(5) ? path(otherwise) : path(name);
    };
    desk.openAnswers = {ready(desk.openDialogs, chance(50) ? "." : "missing.bin")};
    desk.saveAnswers = {ready(desk.saveDialogs, "a.bin")};
    desk.textAnswers = {text()};
    desk.folderAnswers = {chance(50) ? folder : ""};
    if (desk.boxes.empty()) return;
    const bool yesNo = desk.boxes.back().buttons == BoxButtons::yesNo;
    const bool agrees = chance(70);
    desk.boxAnswers = {yesNo ? (agrees ? BoxAnswer::yes : BoxAnswer::no)
                             : (agrees ? BoxAnswer::ok : BoxAnswer::cancel)};
  }

  void workOn(Grid& grid) {
    static constexpr char32_t keys[] = {U'+', U'-', U'x', U'語'};
    const int kind = number(0, 4);
    harmless = kind > 1;
    if (kind == 0) return grid.userDoubleClick();
    if (kind == 1) return grid.userKey(oneOf(random, keys)), grid.userKeyUp();
    if (kind == 2) return grid.userMouseDown(MouseButton::right);
    const auto row = [&] { return number(-1, grid.rows()); };
    const auto column = [&] { return number(-1, grid.columns()); };
    grid.userSelect({row(), column(), row(), column()});
  }
  void drawOn(Canvas& canvas) {
    static constexpr char32_t keys[] = {U'+', U'-', U'x'};
    const int key = number(leftKey, downKey);
    canvas.userKeyDown(key);
    canvas.userKey(oneOf(random, keys));
    if (chance(80)) canvas.userKeyUp(key);
  }
  void pickRow(MenuItem& item) {
    if (!item.children().empty() || !item.onClick) return;
    lastPicked = item.name();
    picked.insert(lastPicked);
    if (lastPicked != "owari" || chance(10)) item.userPick();
  }
  // Whatever can be done to a control. What only looks or chooses brings no box and no question.
  void touch(Control& control) {
    if (auto* const button = dynamic_cast<Button*>(&control)) return button->userClick();
    if (auto* const item = dynamic_cast<MenuItem*>(&control)) return pickRow(*item);
    if (auto* const grid = dynamic_cast<Grid*>(&control)) return workOn(*grid);
    if (auto* const check = dynamic_cast<CheckBox*>(&control)) {
      harmless = &control.window() != &form9;
      check->userMouseDown();
      return check->userToggle();
    }
    harmless = true;
    if (auto* const box = dynamic_cast<TextBox*>(&control)) {
      box->userFocus();
      box->userEdit(text(), chance(70) ? TextBox::By::keys : TextBox::By::other);
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
    if (!all.empty()) touch(*oneOf(random, all));
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
        {400, 20, [](User& user, Window& in) { user.touchAny<MenuItem>(in); }},
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
        {0, 30, [](User&, Window& in) { in.userEnter(); }},
        {0, 30, [](User&, Window& in) { in.userKey(); }},
    };
    Window& window = differencesWindow.takesInput() && chance(10) ? differencesWindow : front();
    const bool main = &window == &form1();
    if (!main && !window.standsBeside() && &window != &frmSplash && chance(10)) knockAtForm1();
    int whole = 0;
    for (const auto& gesture : gestures) whole += main ? gesture.inMain : gesture.inOther;
    int left = number(1, whole);
    harmless = false;
    lastPicked.clear();
    const auto* gesture = gestures;
    while ((left -= main ? gesture->inMain : gesture->inOther) > 0) ++gesture;
    const Bytes saved = editorState.savedImage;
    const std::size_t opened = desk.openDialogs.size();
    gesture->act(*this, window);
    // The list takes bytes over that no map shows.
    loading = desk.openDialogs.size() != opened || lastPicked.starts_with("mnuRecent") ||
              &window == &differencesWindow;
    const bool loaded = loading && editorState.savedImage != saved;
    if (loaded && editorState.image == editorState.savedImage) checkDrawn();
  }

  void checkWhatMustHold() {
    ASSERT_TRUE(desk.unexpected.empty()) << desk.unexpected.front();
    ASSERT_FALSE(desk.busy);
    ASSERT_TRUE(!harmless || desk.boxes.empty()) << "unasked: " << desk.boxes.front().text;
    ASSERT_TRUE(!harmless || desk.prompts.empty()) << "unasked: " << desk.prompts.front().text;
    ASSERT_EQ(files.broken(folder), "");
    for (const MessageBox& box : desk.boxes) {
      ASSERT_EQ(box.text.find("ERROR = [51]"), std::string::npos) << box.text;
      ASSERT_EQ(box.text.find("ERROR = [7]"), std::string::npos) << box.text;
    }
    desk.boxes.clear();
    desk.prompts.clear();
    if (desk.ended) return;
    ASSERT_EQ(form1().enabled(), &front() == &form1() || &front() == &frmSplash);
    for (const MapKind& kind : mapKinds()) checkGrid(kind);
  }
  void checkGrid(const MapKind& kind) {
    const Grid& grid = gridOf(kind);
    const MapEntry& entry = editorState.addressMap.map(kind.id);
    ASSERT_TRUE(grid.redraw()) << kind.keyword;
    ASSERT_EQ(grid.enabled(), entry.present()) << kind.keyword;
    if (kind.isScale() || kind.family == MapFamily::airflow || !entry.present()) return;
    ASSERT_EQ(grid.columns(), entry.columns + 1) << kind.keyword;
    ASSERT_EQ(grid.rows(), entry.rows + 1) << kind.keyword;
  }

  // Whether all of it went into the image; an image that the map doesn't fit takes a part.
  bool writesBack() {
    std::vector<MessageBox> told;
    std::swap(told, desk.boxes);
    writeBackAll();
    setProgress(-1);
    std::swap(told, desk.boxes);
    return told.empty();
  }
  // What is drawn from the image, and what of it goes into the image again.
  void checkDrawn() {
    const Bytes image = editorState.image;
    const std::vector<Piece> drawn = shownPieces();
    for (const Piece& piece : drawn) ASSERT_EQ(piece.text, readAs(piece, image)) << piece.where;
    if (!writesBack()) return;
    ASSERT_EQ(difference(editorState.image, stored(drawn, image)), "");
    boxesWatched += !drawn.empty() && drawn.back().kind == Piece::inBox;
  }
  // One sign for each cell and box.
  static std::string allMarks() {
    std::string marks;
    for (const MapKind& kind : mapKinds()) {
      const Grid& grid = gridOf(kind);
      for (int place = 0; place < grid.rows() * grid.columns(); ++place) {
        const Mark mark = grid.mark(place / grid.columns(), place % grid.columns());
        marks += static_cast<char>('0' + static_cast<int>(mark));
      }
    }
    for (const ParamKind& kind : paramKinds()) {
      marks += static_cast<char>('0' + static_cast<int>((form1().*kind.box).mark()));
    }
    return marks;
  }
  // What stands in the grids and boxes goes into the image; drawn from it, it stands there again.
  void checkEdited() {
    if (editorState.imageSize == 0) return;
    const Bytes image = editorState.image;
    const Bytes pending = pendingImage.bytes();
    const std::string marks = allMarks();
    const bool whole = writesBack();
    ASSERT_EQ(difference(editorState.image, pending), "");
    differencesOutdated();
    followStep({});
    ASSERT_EQ(allMarks(), marks);
    if (!whole) return;
    ASSERT_EQ(difference(editorState.image, stored(shownPieces(), image)), "");
    redrawAllMaps();
    showGlobalParams();
    differencesOutdated();
    followStep({});
    checkDrawn();
  }
  // A gesture that changes bytes by what stands in the cells and boxes alone, but for the commands
  // that work on the image itself; it is followed by the walk's own history, which begins anew
  // wherever a text can't be stored: what the image then holds is told by the way that led there.
  void checkOneStep() {
    endGestureThread();
    const bool undoes = canUndo(), redoes = canRedo();
    const std::size_t size = historyBytes();
    const std::size_t opened = desk.openDialogs.size();
    const std::string in = front().name();
    const bool whole = editorState.imageSize != 0 && writesBack();
    const Bytes image = editorState.image;
    const int kind = &front() == &form1() ? number(1, 10) : 10;
    lastPicked.clear();
    harmless = loading = false;
    if (kind < 10 && editorState.imageSize == 0) {
      pickRow(*form1().menuBar.find("load_bin_file"));
    } else if (kind < 4) {
      pickRow(*form1().menuBar.find(chance(50) ? "undo" : "redo"));
    } else if (kind < 6) {
      chance(80) ? touchAny<Grid>(form1()) : touchAny<TextBox>(form1());
    } else if (Grid* const grid = activeGrid(); kind < 9 && grid) {
      workOn(*grid);
    } else if (&front() != &form1() && chance(30)) {
      front().userEnter();
    } else {
      ASSERT_NO_FATAL_FAILURE(step());
    }
    if (desk.ended || editorState.imageSize == 0 || !writesBack()) return places.clear();
    const bool otherBytes = loading || desk.openDialogs.size() != opened || in == "Form3" ||
                            in == "Form4" || in == "Form6" || lastPicked.starts_with("use") ||
                            lastPicked.ends_with("do");
    if (whole && !otherBytes) {
      ASSERT_EQ(difference(editorState.image, stored(shownPieces(), image)), "") << lastPicked;
      ++stepsWatched;
    }
    if (!canUndo() && !canRedo()) return places.clear();
    Place now = placeNow();
    const bool back = undoes && lastPicked == "undo", forth = redoes && lastPicked == "redo";
    if (places.empty() || (back && at == 0)) {
      places = {std::move(now)};
      at = 0;
    } else if (back || (forth && at + 1 < places.size())) {
      at = back ? at - 1 : at + 1;
      ASSERT_EQ(difference(now, places[at]), "") << lastPicked;
      ++movesWatched;
    } else if (forth || historyBytes() != size || redoes != canRedo()) {
      ASSERT_TRUE(canUndo() && (forth || !canRedo())) << lastPicked;
      ASSERT_TRUE(otherBytes || difference(now, places[at]) != "") << "a step that is no change";
      places.resize(++at);
      places.push_back(std::move(now));
    } else {
      ASSERT_EQ(difference(now, places[at]), "") << "a change that is no step";
    }
  }

  Random random{static_cast<std::uint32_t>(fromEnvironment("ZELKOVA_SEED", 7))};
  std::set<std::string> picked;
  std::string lastPicked;
  bool harmless = false;
  bool loading = false;
  FolderWatch files;
  std::vector<Place> places;
  std::size_t at = 0;
  int stepsWatched = 0;
  int movesWatched = 0;
  int boxesWatched = 0;
};

TEST_F(TirelessUser, FindsNothingBroken) {
  const int gestures = fromEnvironment("ZELKOVA_GESTURES", 12000);
  for (int i = 0; i < gestures; ++i) {
    SCOPED_TRACE(i);
    // A hexadecimal text that is loaded raw, again and again, grows without end.
    if (desk.ended || editorState.imageSize > largestImage || i % newCars == 0) begin();
    const bool watched = i % 300 < 150;
    if (!watched) places.clear();
    if (i % 50 == 0 && !watched) checkEdited();
    if (HasFatalFailure()) return;
    ASSERT_NO_FATAL_FAILURE(watched ? checkOneStep() : step());
    ASSERT_NO_FATAL_FAILURE(checkWhatMustHold());
  }
  if (gestures < 12000) return;
  EXPECT_GT(stepsWatched, gestures / 100);
  EXPECT_GT(movesWatched, gestures / 100);
  EXPECT_GT(boxesWatched, gestures / 500);
  for (Control* control : form1().controls()) {
    auto* const item = dynamic_cast<MenuItem*>(control);
    if (item && item->onClick && item->children().empty()) {
      EXPECT_EQ(picked.count(item->name()), 1u) << item->name();
    }
  }
}

}  // namespace
