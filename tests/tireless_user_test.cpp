// A tireless user: a seeded random walk over every menu row, tab, dialog, key, click, answer, load
// and save of the headless program, with what must hold after each gesture. A walk is replayed by
// ZELKOVA_SEED and made longer by ZELKOVA_GESTURES.
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <set>

#include "calc/af_table.h"
#include "calc/engine_specification.h"
#include "core/global_parameters.h"
#include "core/map_display.h"
#include "core/map_kinds.h"
#include "core/progress.h"
#include "core/rom_image.h"
#include "editing/add_multiply.h"
#include "editing/address_dialog.h"
#include "editing/address_grid.h"
#include "editing/map_copy.h"
#include "editing/map_shift.h"
#include "editing/smoothing.h"
#include "frontend/about.h"
#include "frontend/environment.h"
#include "frontend/splash.h"
#include "frontend/startup.h"
#include "generators.h"
#include "graphs/dr_graph.h"
#include "graphs/tp_curve.h"
#include "imagefiles/odd_even.h"
#include "support.h"
#include "walk_watch.h"

namespace {

using Gesture = std::function<void()>;

struct Dialog {
  Window* window;
  std::vector<Gesture> gestures;
};

int fromEnvironment(const char* name, int otherwise) {
  const char* const text = std::getenv(name);
  return text ? std::atoi(text) : otherwise;
}

constexpr std::size_t roomyImage = 5000;
constexpr std::int32_t largestImage = 1 << 20;
const char* const imageNames[] = {"a.bin", "b.bin", "c.hex", "d.hex"};
const char* const pairNames[] = {"odd.bin", "even.bin", "odd.hex", "even.hex"};
const char* const mapNames[] = {"map0.adr", "map1.adr", "map2.adr", "map3.adr", "junk.adr"};
const char* const numbers[] = {"0",     "1",     "12", "100",  "255", "256",
                               "65535", "65536", "-5", "12.5", "1.5", "0.25"};
const char* const oddities[] = {"abc",   "",  "FF",  "1G", "00",    "1e3",
                                "1e400", "-", " 7 ", "車", "\t\r\n"};
const char* const blocks[] = {"99999999999", "10,20,30,40,1,1", "1,2,2147483647,2147483647"};

class TirelessUser : public ProgramTest {
 protected:
  int number(int low, int high) { return randomNumber(random, low, high); }
  bool chance(int percent) { return number(1, 100) <= percent; }
  template <class Items>
  auto& oneOf(Items& items) {
    return items[static_cast<std::size_t>(number(0, static_cast<int>(std::size(items)) - 1))];
  }
  const char* text() {
    return chance(50) ? oneOf(numbers) : chance(75) ? oneOf(oddities) : oneOf(blocks);
  }

  void SetUp() override {
    std::size_t reach = 40;  // crowded maps that fit all images, and roomy ones
    for (const char* name : mapNames) {
      writeText(name, randomAddressMap(random, reach));
      reach = reach < roomyImage ? reach * 5 : 40;
    }
    writeBytes("junk.adr", patternImage(300));
    desk.whileAsking = [this] { answer(); };
    describeDialogs();
    startAnew();
  }

  void startAnew() {
    for (const Dialog& dialog : dialogs) {
      if (dialog.window->loaded()) dialog.window->unload();
    }
    discardForm1();
    editorState = EditorState{};
    desk.ended = false;
    desk.shownWindows.clear();
    for (const char* name : imageNames) {
      writeBytes(name, chance(50) ? randomImage(random) : patternImage(roomyImage, 9));
    }
    writeText("zelkova.ini", firstSettings(oneOf(mapNames)));
    startProgram(folder);
    ASSERT_EQ(desk.shownWindows, std::vector<Window*>{&frmSplash});
    files = FolderWatch{};
    files.whatIsWrong(folder);
  }

  // Puts one answer of each kind ready; while the question stands no window may take input.
  void answer() {
    EXPECT_FALSE(form1().takesInput());
    for (const Dialog& dialog : dialogs) EXPECT_FALSE(dialog.window->takesInput());
    if (!desk.boxes.empty()) {
      const bool yesNo = desk.boxes.back().buttons == BoxButtons::yesNo;
      const BoxAnswer agrees = yesNo ? BoxAnswer::yes : BoxAnswer::ok;
      const BoxAnswer declines = yesNo ? BoxAnswer::no : BoxAnswer::cancel;
      desk.boxAnswers = {chance(70) ? agrees : declines};
    }
    desk.textAnswers = {text()};
    desk.openAnswers = {chance(10) ? "" : chance(5) ? folder : path(fileToOpen())};
    desk.saveAnswers = {chance(10) ? "" : path(fileToSave())};
    desk.folderAnswers = {chance(50) ? folder : ""};
  }

  std::string fileToOpen() {
    const std::string title = desk.openDialogs.empty() ? "" : desk.openDialogs.back().filter;
    if (title.find("adr") != std::string::npos) return oneOf(mapNames);
    if (chance(20)) return oneOf(pairNames);
    return chance(5) ? "missing.bin" : oneOf(imageNames);
  }

  std::string fileToSave() {
    const std::string title = desk.saveDialogs.empty() ? "" : desk.saveDialogs.back().title;
    const bool half = title.find("ODD") != std::string::npos ||
                      title.find("EVEN") != std::string::npos ||
                      title.find("数") != std::string::npos;
    return half ? oneOf(pairNames) : oneOf(imageNames);
  }

  Gesture typing(TextBox& box) {
    return [this, &box] {
      box.userFocus();
      box.userEdit(text(), chance(70) ? TextBox::By::keys : TextBox::By::other);
    };
  }
  // Gestures that only look or choose ask for nothing; the others may bring boxes and questions.
  Gesture commanding(Gesture gesture) {
    return [this, gesture] {
      commanded = true;
      gesture();
    };
  }
  Gesture clicking(Button& button) {
    return commanding([&button] { button.userClick(); });
  }
  Gesture toggling(CheckBox& box) {
    return [&box] {
      box.userMouseDown();
      box.userToggle();
    };
  }
  Gesture choosing(Option& option) {
    return [&option] {
      option.userMouseDown();
      option.userSelect();
    };
  }
  Gesture listing(ListBox& list) {
    return [this, &list] {
      list.userMouseDown();
      list.userSelect(number(-1, static_cast<int>(list.items().size())));
    };
  }
  Gesture working(Grid& grid) {
    return [this, &grid] { workOn(grid); };
  }
  Gesture drawing(Canvas& canvas) {
    return [this, &canvas] {
      const int key = number(leftKey, downKey);
      const char32_t characters[] = {U'+', U'-', U'x'};
      canvas.userKeyDown(key);
      canvas.userKey(oneOf(characters));
      if (chance(80)) canvas.userKeyUp(key);
    };
  }

  void workOn(Grid& grid) {
    const char32_t keys[] = {U'+', U'-', U'x', U'語'};
    const int kind = number(0, 4);
    commanded |= kind < 2;
    switch (kind) {
      case 0:
        return grid.userDoubleClick();
      case 1:
        grid.userKey(oneOf(keys));
        return grid.userKeyUp();
      case 2:
        return grid.userMouseDown(MouseButton::right);
      default:
        const auto row = [&] { return number(-1, grid.rows()); };
        const auto column = [&] { return number(-1, grid.columns()); };
        return grid.userSelect({row(), column(), row(), column()});
    }
  }

  void describeDialogs() {
    const auto bulk = [this](BulkChangeDialog& d) {
      return Dialog{&d, {typing(d.Text1), typing(d.Text2), clicking(d.Command1)}};
    };
    const auto copies = [this](MapCopyDialog& d) {
      return Dialog{&d,
                    {choosing(d.Option1), choosing(d.Option2), toggling(d.Check1),
                     toggling(d.Check2), clicking(d.Command1)}};
    };
    dialogs = {
        bulk(form7),
        bulk(form8),
        copies(form3),
        copies(form4),
        {&form10, {typing(form10.Text1), clicking(form10.Command1)}},
        {&form11,
         {choosing(form11.Option1), choosing(form11.Option2), toggling(form11.Check1),
          clicking(form11.Command1)}},
        {&form13, {typing(form13.Text1), typing(form13.Text2), typing(form13.Text3), commanding([] {
                     form13.Text1.userEdit("8");
                     form13.Text2.userEdit("4");
                     form13.Text3.userEdit("3");
                     form13.Command1.userClick();
                   })}},
        {&form6,
         {working(form6.eGrid), working(form6.eGrid), clicking(form6.Command1),
          [this] { pickFrom(form6.menuBar); }}},
        {&form5, {working(form5.Grid1), clicking(form5.Command1)}},
        {&form2,
         {typing(form2.Text1), typing(form2.Text2), typing(form2.Text3), clicking(form2.Command2)}},
        {&oddeven,
         {listing(oddeven.List1), choosing(oddeven.Option1), choosing(oddeven.Option2),
          clicking(oddeven.Command1), clicking(oddeven.Command2)}},
        {&form9,
         {typing(form9.Text1), typing(form9.Text2), typing(form9.Text3), typing(form9.Text4),
          typing(form9.Text5), typing(form9.Text6), typing(form9.Text7), typing(form9.Text8),
          typing(form9.Text9), commanding(toggling(form9.Check1)), clicking(form9.Command3),
          clicking(form9.Command4), clicking(form9.Command5), clicking(form9.Command1)}},
        {&frmAbout, {[] { frmAbout.Label6.userClick(); }, clicking(frmAbout.cmdOK)}},
        {&frmSplash,
         {[] { frmSplash.userKey(); }, [] { frmSplash.Picture1.userClick(); },
          [] { frmSplash.Timer1.fire(); }}},
        {&DR_GRAPH,
         {drawing(DR_GRAPH.Picture1), drawing(DR_GRAPH.Picture1), toggling(DR_GRAPH.Check1),
          toggling(DR_GRAPH.Check2), toggling(DR_GRAPH.Check3), listing(DR_GRAPH.List1),
          typing(DR_GRAPH.Text2), choosing(DR_GRAPH.Option1), choosing(DR_GRAPH.Option2),
          clicking(DR_GRAPH.Command3), clicking(DR_GRAPH.Command2),
          [] { DR_GRAPH.Timer1.fire(); }}},
        {&D2_GRAPH,
         {drawing(D2_GRAPH.Picture1), drawing(D2_GRAPH.Picture1), clicking(D2_GRAPH.Command1)}},
    };
  }

  static void leaves(MenuItem& item, std::vector<MenuItem*>& found) {
    for (const auto& child : item.children()) leaves(*child, found);
    if (item.children().empty() && item.onClick) found.push_back(&item);
  }
  void pickFrom(MenuItem& menu) {
    std::vector<MenuItem*> items;
    leaves(menu, items);
    MenuItem* const item = oneOf(items);
    commanded = true;
    lastPicked = item->name();
    if (item->name() != "owari" || chance(10)) item->userPick();
    picked.insert(item->name());
  }

  const Dialog* openDialogNow() const {
    for (const Dialog& dialog : dialogs) {
      if (dialog.window->loaded()) return &dialog;
    }
    return nullptr;
  }

  void gestureIn(const Dialog& dialog) {
    if (chance(6)) return dialog.window->userClose();
    if (chance(3)) return dialog.window->userEscape();
    if (chance(3)) return commanding([&] { dialog.window->userEnter(); })();
    oneOf(dialog.gestures)();
  }

  void gestureInForm1() {
    const int kind = number(0, 9);
    if (kind < 4) return pickFrom(form1().menuBar);
    if (kind == 4) return form1().TabStrip1.userSelect(number(0, 15));
    if (kind == 5) return typing(form1().*oneOf(paramKinds()).box)();
    if (kind == 6 && chance(3)) return commanding([] { form1().userClose(); })();
    Grid* const grid = kind < 8 ? activeGrid() : &gridOf(oneOf(mapKinds()));
    if (grid) workOn(*grid);
  }

  // A dialog in front keeps everything in the main window as it is.
  void knockAtForm1() {
    const std::int32_t tab = editorState.currentTab;
    const std::size_t questions = desk.boxes.size() + desk.prompts.size();
    gestureInForm1();
    ASSERT_EQ(editorState.currentTab, tab);
    ASSERT_EQ(desk.boxes.size() + desk.prompts.size(), questions);
  }

  void step() {
    commanded = false;
    if (const Dialog* const dialog = openDialogNow()) {
      if (dialog->window != &frmSplash && chance(10)) knockAtForm1();
      gestureIn(*dialog);
    } else {
      gestureInForm1();
    }
  }

  void checkWhatMustHold() {
    ASSERT_TRUE(desk.unexpected.empty()) << desk.unexpected.front();
    ASSERT_EQ(form1().enabled(), openDialogNow() == nullptr || frmSplash.loaded());
    ASSERT_FALSE(desk.busy);
    ASSERT_TRUE(commanded || desk.boxes.empty()) << "unasked: " << desk.boxes.front().text;
    ASSERT_TRUE(commanded || desk.prompts.empty()) << "unasked: " << desk.prompts.front().text;
    ASSERT_EQ(files.whatIsWrong(folder), "");
    for (const MapKind& kind : mapKinds()) checkGrid(kind);
    for (const MessageBox& box : desk.boxes) {
      ASSERT_EQ(box.text.find("ERROR = [51]"), std::string::npos) << box.text;
      ASSERT_EQ(box.text.find("ERROR = [7]"), std::string::npos) << box.text;
    }
    desk.boxes.clear();
    desk.prompts.clear();
  }

  void checkGrid(const MapKind& kind) {
    const Grid& grid = gridOf(kind);
    const MapEntry& entry = editorState.addressMap.map(kind.id);
    ASSERT_TRUE(grid.redraw()) << kind.keyword;
    ASSERT_EQ(grid.enabled(), entry.present()) << kind.keyword;
    const bool ownSize = kind.family == MapFamily::main || kind.family == MapFamily::limitRow ||
                         kind.family == MapFamily::additional;
    if (!ownSize || !entry.present()) return;
    ASSERT_EQ(grid.columns(), entry.columns + 1) << kind.keyword;
    ASSERT_EQ(grid.rows(), entry.rows + 1) << kind.keyword;
  }

  // Whether all of it went into the image; an image that the map doesn't fit takes a part.
  bool writesBack() {
    writeBackAll();
    setProgress(-1);
    const bool whole = desk.boxes.empty();
    desk.boxes.clear();
    return whole;
  }

  // What stands in the grids and boxes goes into the image; drawn from it, it stands there again,
  // and a second write-back changes nothing but limits that a box can't show exactly.
  void checkWriteBack() {
    if (editorState.imageSize == 0) return;
    const std::vector<Piece> edited = shownPieces();
    if (!writesBack()) return;
    redrawAllMaps();
    showGlobalParams();
    ASSERT_EQ(lostText(edited), "");
    const Bytes once = editorState.image;
    std::vector<Piece> drawn = shownPieces();
    for (Piece& piece : drawn) piece.text += piece.where.ends_with("_LIMIT") ? "?" : "";
    writeBackAll();
    ASSERT_EQ(unaskedChange(once, drawn), -1);
    setProgress(-1);
    ASSERT_TRUE(desk.boxes.empty()) << desk.boxes.front().text;
  }

  // One more gesture changes the bytes of those cells and boxes alone whose texts it changed. The
  // commands that work on the image itself are not held to it.
  void checkBytesOfOneStep() {
    if (editorState.imageSize == 0 || !writesBack()) return step();
    const Bytes image = editorState.image;
    const std::vector<Piece> pieces = shownPieces();
    const std::size_t opened = desk.openDialogs.size();
    bool otherBytes = form3.loaded() || form4.loaded() || form6.loaded();
    lastPicked.clear();
    ASSERT_NO_FATAL_FAILURE(step());
    otherBytes |= desk.openDialogs.size() != opened || lastPicked.starts_with("mnuRecentFile") ||
                  lastPicked.starts_with("use");
    if (otherBytes || desk.ended) return;
    std::vector<MessageBox> told;
    std::swap(told, desk.boxes);
    const bool whole = writesBack();
    std::swap(told, desk.boxes);
    if (!whole) return;
    ASSERT_EQ(unaskedChange(image, pieces), -1) << lastPicked;
    ++stepsWatched;
  }

  Random random{static_cast<std::uint32_t>(fromEnvironment("ZELKOVA_SEED", 7))};
  std::vector<Dialog> dialogs;
  std::set<std::string> picked;
  std::string lastPicked;
  bool commanded = false;
  FolderWatch files;
  int stepsWatched = 0;
};

TEST_F(TirelessUser, FindsNothingBroken) {
  const int gestures = fromEnvironment("ZELKOVA_GESTURES", 25000);
  for (int i = 0; i < gestures; ++i) {
    SCOPED_TRACE(i);
    if (i % 50 == 0) {
      ASSERT_NO_FATAL_FAILURE(checkWriteBack());
    }
    ASSERT_NO_FATAL_FAILURE(chance(10) ? checkBytesOfOneStep() : step());
    ASSERT_NO_FATAL_FAILURE(checkWhatMustHold());
    // A hexadecimal text that is loaded raw, again and again, grows without end.
    if (desk.ended || editorState.imageSize > largestImage) startAnew();
  }
  if (gestures >= 20000) {
    EXPECT_GT(stepsWatched, gestures / 100);
    std::vector<MenuItem*> all;
    leaves(form1().menuBar, all);
    for (const MenuItem* item : all) EXPECT_EQ(picked.count(item->name()), 1u) << item->name();
  }
}

}  // namespace
