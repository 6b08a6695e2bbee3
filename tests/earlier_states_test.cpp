// The store of earlier states: what comes into it, what the list shows and gives back, what goes,
// and a store that others damaged.
#include "core/earlier_states.h"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <thread>

#include "changes/differences_window.h"
#include "core/differences.h"
#include "core/pending_image.h"
#include "imagefiles/earlier_states_window.h"
#include "imagefiles/intel_hex_file.h"
#include "imagefiles/odd_even.h"
#include "support.h"

namespace {

namespace fs = std::filesystem;

class EarlierStates : public ProgramTest {
 protected:
  EarlierStates() { desk.userData = path("data"); }

  void step() {
    drag(form1().Grid1, 1, 1, 1, 1);
    form1().Grid1.userKey(U'+');
    form1().Grid1.userKeyUp();
  }
  // Opens the list of all states: name, why, bytes and how many differ of each.
  std::string listed() {
    if (!earlierStatesWindow.loaded()) pick("earlier_states");
    if (earlierStatesWindow.thisFileOnly.checked()) earlierStatesWindow.thisFileOnly.userToggle();
    return textsOf(earlierStatesWindow.list, 1, 1, "|", "\n");
  }
  void choose(int row) { earlierStatesWindow.list.userSelect({row, 0, row, 0}); }
};

TEST_F(EarlierStates, WhatASaveReplacesIsListedComparedLoadedCopiedAndForgotten) {
  loadSmallCar();
  const Bytes original = patternImage(0x400), others = patternImage(77, 5);
  EXPECT_EQ(listed(), "|||\n");
  EXPECT_FALSE(earlierStatesWindow.forget.enabled() || earlierStatesWindow.loadState.enabled());
  earlierStatesWindow.userClose();
  step();
  for (int i = 0; i < 2; ++i) pick("update_bin_file");  // the second replaces nothing
  const Bytes saved = readBytes("image.bin");
  writeBytes("image.bin", others);
  step();
  pick("update_bin_file");
  writeIntelHex(path("other.hex"), original);
  const std::string hex = readText("other.hex");
  desk.boxAnswers.push_back(BoxAnswer::ok);
  pick("ANY_NAME_SAVE_IntelHEX", {"other.hex"});
  const std::string hexBytes = std::to_string(hex.size());
  EXPECT_EQ(listed(), "other.hex|before a save|" + hexBytes + "|1\nimage.bin|before a save|77|" +
                          std::to_string(1024) + "\nimage.bin|before a save|1024|1\n");

  choose(3);
  EXPECT_EQ(earlierStatesWindow.heading.caption(), path("image.bin"));
  earlierStatesWindow.showDifferences.userClick();
  EXPECT_EQ(*referenceImage(), original);
  EXPECT_TRUE(differencesWindow.loaded() && editorState.compareLoaded == 0);
  EXPECT_NE(differencesWindow.heading.caption().find(" - image.bin 20"), std::string::npos);
  differencesWindow.userClose();

  listed();
  choose(1);
  desk.saveAnswers.push_back(path("copy.hex"));
  earlierStatesWindow.saveCopy.userClick();
  EXPECT_EQ(readText("copy.hex"), hex);

  earlierStatesWindow.userClose();
  step();
  for (const BoxAnswer answer : {BoxAnswer::no, BoxAnswer::yes}) {
    listed();
    choose(3);
    desk.boxAnswers.push_back(answer);
    earlierStatesWindow.userEnter();
    EXPECT_FALSE(earlierStatesWindow.loaded());
    EXPECT_EQ(editorState.image == original, answer == BoxAnswer::yes);
  }
  EXPECT_EQ(editorState.imageTitle, "image.bin");
  EXPECT_EQ(readBytes("image.bin"), editorState.savedImage);
  EXPECT_NE(editorState.savedImage, original) << "it isn't saved yet";
  EXPECT_EQ(listed().substr(0, 40), "other.hex|given up unsaved|1024|1\nother.");
  EXPECT_EQ(earlierStatesWindow.list.chosen(), 0U) << "not what was chosen before";
  for (int left = 3; left >= 0; --left) {
    earlierStatesWindow.forget.userClick();
    EXPECT_EQ(static_cast<int>(earlierStates().size()), left);
  }
  earlierStatesWindow.userClose();
}

TEST_F(EarlierStates, WhatIsGivenUpUnsavedIsKeptAsASaveWouldWriteIt) {
  const std::function<void()> ways[] = {
      [&] { pickFile("load_bin_file", "other.bin"); },
      [&] { pickFile("load_bin_file", "missing.bin"); },
      [&] {
        desk.boxAnswers.clear();
        desk.saveAnswers = {path("odd.bin"), path("no folder/even.bin")};
        pick("odd_even_file");
        oddeven.Command2.userClick();
        EXPECT_EQ(editorState.imageSize, 0);
        EXPECT_TRUE(shown().find("are kept among the earlier states") != std::string::npos);
      },
      [&] { pick("owari"); }};
  std::uint32_t kept = 0;
  for (const auto& way : ways) {
    end();
    startWithMap(smallMap());
    editorState.splitRomKbit = "64";
    editorState.splitFormat = "BINARY";
    writeBytes("other.bin", patternImage(80));
    loadImage(patternImage(8192, 9 + kept));
    step();
    const Bytes unsaved = pendingImage.bytes();
    desk.boxAnswers = {BoxAnswer::no};
    pick("load_bin_file");
    desk.boxAnswers = {BoxAnswer::yes};
    desk.openAnswers = {""};
    pick("load_bin_file");
    ASSERT_EQ(earlierStates().size(), kept) << "nothing is given up yet";
    desk.boxAnswers = {BoxAnswer::yes};
    way();
    ASSERT_EQ(earlierStates().size(), ++kept);
    EXPECT_EQ(bytesOf(earlierStates().front()), unsaved);
  }
}

TEST_F(EarlierStates, WhatAnExportReplacesIsKept) {
  loadSmallCar();
  for (const char* command : {"export_map", "report"}) {
    writeText("mine", command);
    writeText("mine before", command);
    desk.boxAnswers = {BoxAnswer::ok};
    pick(command, {"mine"});
    EXPECT_NE(readText("mine"), command);
    EXPECT_EQ(bytesOf(earlierStates().front()), readBytes("mine before"));
  }
}

class KeptByHand : public EarlierStates {
 protected:
  // A state as the store itself would have kept it.
  EarlierState put(std::int64_t when, const std::string& name, std::uint8_t byte = 1,
                   std::uintmax_t size = 5, StateKind kind = StateKind::overwritten) {
    const Bytes bytes(5, byte);
    EarlierState state = newState({path(name), kind}, bytes);
    state.file.when = when;
    state.file.mark.size = size;
    fs::create_directories(stateStore().folder());
    write(placeOf(state, ".state"), std::string(bytes.begin(), bytes.end()));
    if (size < (std::uintmax_t{1} << 30)) fs::resize_file(placeOf(state, ".state"), size);
    write(placeOf(state, ".txt"), textOf(state));
    return state;
  }
  static std::string nameOf(const EarlierState& state) {
    const std::string text = textOf(state), when = std::to_string(state.file.when);
    const auto after = [&](const std::string& key) {
      return text.substr(text.find(key) + key.size(), 16);
    };
    std::string subject(16, '0');
    std::snprintf(subject.data(), 17, "%016llX",
                  static_cast<unsigned long long>(state.file.subject));
    return std::string(16 - when.size(), '0') + when + "-" + subject + "-" + after("checksum ") +
           "-" + std::to_string(state.file.mark.size);
  }
  static fs::path placeOf(const EarlierState& state, const char* ending) {
    return stateStore().folder() / (nameOf(state) + ending);
  }
  static void write(const fs::path& place, const std::string& text) {
    std::ofstream(place, std::ios::binary) << text;
  }
  bool stands(const EarlierState& state) const {
    finishEarlierStates();
    return fs::exists(placeOf(state, ".state"));
  }
};

TEST_F(KeptByHand, TheOldestGoFirstButNeverTheNewestOrTheFirstOfAPath) {
  loadSmallCar();
  const EarlierState lone = put(1, "lone"), first = put(2, "a"), old = put(3, "a", 2);
  const EarlierState newest = put(4, "a", 3), untrue = put(5, "a", 4, std::uintmax_t{1} << 62);
  for (int i = 0; i < 195; ++i) put(10 + i, "b", static_cast<std::uint8_t>(i));
  step();
  pick("update_bin_file");
  EXPECT_TRUE(stands(lone) && stands(first) && stands(old) && stands(newest)) << "200 states";
  step();
  pick("update_bin_file");
  EXPECT_TRUE(!stands(old) && stands(lone) && stands(first) && stands(newest) && stands(untrue));
  EXPECT_EQ(earlierStates().size(), mostStates);
  const std::uintmax_t large = mostStateBytes / 2 - 200'000;
  const EarlierState half = put(500, "b", 1, large), other = put(501, "b", 2, large);
  put(502, "b", 5);
  for (const bool fits : {true, false}) {
    step();
    if (!fits) {
      // Some systems tell the time of a folder in whole seconds.
      std::this_thread::sleep_for(std::chrono::milliseconds(1100));
      put(503, "b", 6, 400'000);
    }
    pick("update_bin_file");
    EXPECT_TRUE(stands(half) == fits && stands(other));
  }
  EXPECT_LT(earlierStates().size(), mostStates);
}

TEST_F(KeptByHand, AStateIsNoSecondNameOfAFileOfTheUserOnceAProgramStarts) {
  loadSmallCar();
  const EarlierState state = put(1, "image.bin");
  fs::create_hard_link(placeOf(state, ".state"), path("linked"));
  separateStates();
  writeText("linked", "other bytes, in place");
  EXPECT_EQ(bytesOf(state), Bytes(5, 1));
}

TEST_F(KeptByHand, TheFileAsItStoodBeforeTheFirstSaveNeverGoes) {
  loadSmallCar();
  const EarlierState unfinished = put(1, "a", 1, 5, StateKind::unfinished);
  const EarlierState original = put(2, "a", 2), old = put(3, "a", 3);
  put(4, "a", 4);
  for (int i = 0; i < 200; ++i) put(10 + i, "b", static_cast<std::uint8_t>(i));
  step();
  pick("update_bin_file");
  EXPECT_TRUE(stands(unfinished) && stands(original) && !stands(old));
}

TEST_F(KeptByHand, WhatIsDamagedOrForeignIsTakenForNothingElse) {
  loadSmallCar();
  const EarlierState state = put(7, "image.bin");
  const fs::path bytes = placeOf(state, ".state"), text = placeOf(state, ".txt");
  const std::string record = textOf(state), whole = "image.bin|before a save|5|1024\n";
  const std::string nameless = "unknown|unknown|5|1024\n", nothing = "|||\n";
  EarlierState elsewhere = state, relative = state;
  elsewhere.record->path = path("elsewhere.bin");
  relative.record->path = "../../image.bin";
  const auto replace = [](const fs::path& place, const std::string& content) {
    return [=] { fs::remove(place), write(place, content); };
  };
  const struct {
    const char* what;
    std::function<void()> damage;
    std::string row;
  } cases[] = {
      {"whole", [] {}, whole},
      {"no record", [&] { fs::remove(text); }, nameless},
      {"an empty record", replace(text, ""), nameless},
      {"cut off", replace(text, record.substr(0, record.size() - 1)), nameless},
      {"one letter", replace(text, "Z" + record), nameless},
      {"a path outside", replace(text, textOf(elsewhere)), nameless},
      {"a path from nowhere", replace(text, textOf(relative)), nameless},
      {"no end", replace(text, record + std::string(100'000, 'x')), nameless},
      {"a folder as record", [&] { fs::remove(text), fs::create_directory(text); }, nameless},
      {"other bytes", replace(bytes, "other"), "image.bin|before a save|5|damaged\n"},
      {"fewer bytes", replace(bytes, "four"), nothing},
      {"more bytes", replace(bytes, "\1\1\1\1\1\1"), nothing},
      {"no bytes", [&] { fs::remove(bytes); }, nothing},
      {"a folder", [&] { fs::remove(bytes), fs::create_directory(bytes); }, nothing},
      {"a link",
       [&] {
         std::error_code refused;
         fs::rename(bytes, path("5"));
         fs::create_symlink(path("5"), bytes, refused);
       },
       nothing},
      {"another name", [&] { fs::rename(bytes, text.string() + ".state"); }, nothing},
  };
  for (const auto& [what, damage, row] : cases) {
    SCOPED_TRACE(what);
    fs::remove_all(stateStore().folder());
    put(7, "image.bin");
    damage();
    EXPECT_EQ(listed(), row);
    EXPECT_EQ(earlierStatesWindow.loadState.enabled(), row == whole);
    EXPECT_EQ(earlierStatesWindow.saveCopy.enabled(), row == whole || row == nameless);
    earlierStatesWindow.userClose();
    step();
    pick("update_bin_file");
    EXPECT_EQ(listed().substr(0, 28), "image.bin|before a save|1024");
    earlierStatesWindow.userClose();
  }
  writeText("foreign", "x");
  for (int i = 0; i < 10'000; ++i) {
    const std::string name = std::to_string(i) + (i % 3 == 0 ? ".state" : ".txt");
    fs::create_hard_link(path("foreign"), stateStore().folder() / name);
  }
  step();
  pick("update_bin_file");
  EXPECT_EQ(listed().substr(0, 28), "image.bin|before a save|1024");
  for (int i = 0; i < 10'000; i += 999) {
    const std::string name = std::to_string(i) + (i % 3 == 0 ? ".state" : ".txt");
    EXPECT_TRUE(fs::exists(stateStore().folder() / name)) << name;
  }
}

TEST_F(EarlierStates, AStoreThatCantBeWrittenStopsNothingAndIsToldOnce) {
  desk.userData = path("map.adr");  // a file
  loadSmallCar();
  for (const bool isFirst : {true, false}) {
    step();
    pick("update_bin_file");
    EXPECT_EQ(readBytes("image.bin"), pendingImage.bytes());
    EXPECT_EQ(shown(), isFirst ? "Earlier states can't be kept: [76] Path not found" : "");
    form1().noticeClose.userClick();
  }
  step();
  form1().stateTimer.fire();
  desk.boxAnswers = {BoxAnswer::yes};
  pick("owari");
  EXPECT_TRUE(desk.ended && shown().empty());
}

}  // namespace
