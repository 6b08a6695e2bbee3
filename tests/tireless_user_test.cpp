// The tireless user, with what must hold after each gesture. ZELKOVA_GESTURES makes the walk
// longer.
#include "tireless_user.h"

#include <filesystem>
#include <map>

#include "controls/gesture.h"
#include "core/differences.h"
#include "core/global_parameters.h"
#include "core/history.h"
#include "core/map_display.h"
#include "core/pending_image.h"
#include "core/progress.h"
#include "core/rom_image.h"
#include "core/step.h"
#include "rom/image_writing.h"

namespace {

constexpr int newCars = 250;  // gestures until all files are made anew
constexpr std::int32_t largestImage = 1 << 20;

// All cells with their colours, all boxes and the image. The boost rows follow the engine, too, and
// stay out.
using Place = std::vector<std::string>;

Place placeNow() {
  Place place;
  forEachCell([&place](const MapKind& kind, const Grid& grid, int row, int column) {
    if (!entryOf(kind).present()) return;
    if (row == 0 && kind.rules().after == AfterEffect::boostRow) return;
    const GridCell& cell = grid.cellAt(row, column);
    place.push_back(kind.keyword + (" " + std::to_string(row)) + "," + std::to_string(column) +
                    ": " + cell.text + " red " + std::to_string(cell.background.red) + " blue " +
                    std::to_string(cell.background.blue));
  });
  for (const ParamKind& kind : paramKinds()) place.push_back((form1().*kind.box).text());
  place.emplace_back(editorState.image.begin(), editorState.image.end());
  return place;
}

// The settings have 25 lines.
bool isWhole(const std::string& name, const Bytes& file) {
  const std::string text(file.begin(), file.end());
  if (name.ends_with(".ini")) {
    return text.ends_with("\r\n") && std::count(text.begin(), text.end(), '\n') == 25;
  }
  const auto& layout = editorState.imageLayout;
  if (layout && fileOf(editorState.image, *layout) == file) return true;
  return holdsImage(file, editorState.image, editorState.imageSize);
}

class WatchedUser : public TirelessUser {
 protected:
  void beginWatched() {
    begin();
    files.clear();
    brokenFiles();
  }

  // The names of the files that are neither as they were at the last look nor whole.
  std::string brokenFiles() {
    std::string names;
    const bool forOthers = lastPicked.starts_with("export") || lastPicked == "report";
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
      const std::string name = entry.path().filename().string();
      const Bytes file = readBytes(name), known = std::exchange(files[name], file);
      if (file != known && !forOthers && !isWhole(name, file)) names += name + ' ';
    }
    return names;
  }

  void checkWhatMustHold() {
    ASSERT_TRUE(desk.unexpected.empty()) << desk.unexpected.front();
    for (const MessageBox& box : desk.boxes) {
      ASSERT_EQ(box.text.find("ERROR = [51]"), std::string::npos) << box.text;
      ASSERT_EQ(box.text.find("ERROR = [7]"), std::string::npos) << box.text;
    }
    desk.boxes.clear();
    desk.prompts.clear();
    ASSERT_EQ(form1().Label13.caption(), "") << lastPicked;
    // A recent file that can't be loaded leaves the bar where it stood.
    ASSERT_TRUE(form1().ProgressBar1.value() == 0 || lastPicked.starts_with("mnuRecent"));
    ASSERT_EQ(brokenFiles(), "");
    form1().ProgressBar1.setValue(0);  // the writer of Intel HEX moves it
    if (desk.ended) return;
    ASSERT_FALSE(desk.busy);
    ASSERT_EQ(form1().enabled(), &front() == &form1() || &front() == &frmSplash);
    for (const MapKind& kind : mapKinds()) checkGrid(kind);
  }
  void checkGrid(const MapKind& kind) {
    const Grid& grid = gridOf(kind);
    const MapEntry& entry = entryOf(kind);
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
  // One sign for each cell and box.
  static std::string allMarks() {
    std::string marks;
    const auto add = [&marks](Mark mark) {
      marks += static_cast<char>('0' + static_cast<int>(mark));
    };
    forEachCell([&](auto&, const Grid& grid, int r, int c) { add(grid.mark(r, c)); });
    for (const ParamKind& kind : paramKinds()) add((form1().*kind.box).mark());
    return marks;
  }
  // What a save would write is what a write-back makes, and marks that followed each gesture are
  // those of a fresh look; also once all is drawn from the image.
  void checkEdited() {
    if (editorState.imageSize == 0) return;
    for (const bool drawn : {false, true}) {
      const Bytes pending = pendingImage.bytes();
      const std::string marks = allMarks();
      const bool whole = writesBack();
      ASSERT_TRUE(editorState.image == pending) << drawn;
      markAnew();
      ASSERT_EQ(allMarks(), marks) << drawn;
      if (!whole) return;
      redrawAllMaps();
      showGlobalParams();
      setProgress(-1);
      markAnew();
    }
  }
  static void markAnew() {
    differencesOutdated();
    followStep({});
  }
  // Each gesture that changed something is one step, and steps lead through the places that the
  // walk saw; its history begins anew wherever a text can't be stored: what the image then holds is
  // told by the way that led there.
  void checkOneStep() {
    endGestureThread();
    const bool undoes = canUndo(), redoes = canRedo();
    const std::size_t size = historyBytes();
    ASSERT_NO_FATAL_FAILURE(step());
    if (desk.ended || editorState.imageSize == 0 || !writesBack()) return places.clear();
    if (!canUndo() && !canRedo()) return places.clear();
    Place now = placeNow();
    const auto expectPlace = [&](const Place& expected, Text what) {
      const auto [is, was] = std::ranges::mismatch(now, expected);
      ASSERT_TRUE(is == now.end() && was == expected.end())
          << lastPicked << what << (is == now.end() ? "" : is->substr(0, 40));
    };
    const bool back = undoes && lastPicked == "undo", forth = redoes && lastPicked == "redo";
    if (places.empty() || (back && at == 0)) {
      places = {std::move(now)};
      at = 0;
    } else if (back || (forth && at + 1 < places.size())) {
      at = back ? at - 1 : at + 1;
      ASSERT_NO_FATAL_FAILURE(expectPlace(places[at], " leads elsewhere: "));
      ++movesWatched;
    } else if (forth || historyBytes() != size || redoes != canRedo()) {
      ASSERT_TRUE(canUndo() && (forth || !canRedo())) << lastPicked;
      places.resize(++at);
      places.push_back(std::move(now));
      ++stepsWatched;
    } else {
      ASSERT_NO_FATAL_FAILURE(expectPlace(places[at], " is a change and no step: "));
    }
  }

  std::map<std::string, Bytes> files;
  std::vector<Place> places;
  std::size_t at = 0;
  int stepsWatched = 0;
  int movesWatched = 0;
};

TEST_F(WatchedUser, FindsNothingBroken) {
  const int gestures = fromEnvironment("ZELKOVA_GESTURES", 12000);
  for (int i = 0; i < gestures; ++i) {
    SCOPED_TRACE(i);
    // A hexadecimal text that is loaded raw, again and again, grows without end.
    if (desk.ended || editorState.imageSize > largestImage || i % newCars == 0) {
      ASSERT_NO_FATAL_FAILURE(beginWatched());
    }
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
  for (Control* control : form1().controls()) {
    auto* const item = dynamic_cast<MenuItem*>(control);
    if (!item || !item->onClick || !item->children().empty()) continue;
    EXPECT_EQ(picked.count(item->name()), 1u) << item->name();
  }
}

}  // namespace
