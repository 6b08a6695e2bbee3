// What the notice strip says by itself: of an image that is none or doesn't fit, of a file that
// others changed, and of what the program can't write for itself.
#include "core/notices.h"

#include <chrono>
#include <filesystem>

#include "core/error_log.h"
#include "imagefiles/odd_even.h"
#include "support.h"

namespace {

class Notices : public ProgramTest {
 protected:
  static void close() { form1().noticeClose.userClick(); }
};

TEST_F(Notices, OneThatWasClosedComesBackWithOtherWordsOrAfterItWasWithdrawnAndTheWeightiestShows) {
  startWithMap(smallMap());
  const auto tell = [](const char* subject, NoticeKind kind, const std::string& text) {
    tellNotice({subject, kind, {text, text}});
  };
  tell("a", NoticeKind::warning, "one");
  tell("b", NoticeKind::warning, "two");
  tell("a", NoticeKind::warning, "one");
  EXPECT_EQ(shown(), "two") << "told again it is no newer";
  tell("c", NoticeKind::information, "three");
  close();
  EXPECT_EQ(shown(), "one");
  tell("b", NoticeKind::warning, "two");
  EXPECT_EQ(shown(), "one") << "closed";
  tell("b", NoticeKind::warning, "two more");
  EXPECT_EQ(shown(), "two more");
  close();
  withdrawNotice("b");
  tell("b", NoticeKind::warning, "two more");
  EXPECT_EQ(shown(), "two more");
  for (const char* subject : {"a", "b"}) withdrawNotice(subject);
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(shown(), "three") << i;
    form1().noticeTimer.fire();
    EXPECT_EQ(shown(), "");
    tell("c", NoticeKind::information, "three");
  }
}

TEST_F(Notices, AnImageThatLooksLikeSomethingElseIsNamed) {
  startWithMap("TYPE_UNIT\r\nNO MAPS\r\n");
  const std::string binary(200, '\x90');
  std::string lines;
  for (int i = 0; i < 1000; ++i) lines += "燃料\n";
  const std::string zeros(20, '\0');
  const auto notice = [](const std::string& kind) {
    return kind.empty() ? "" : "What was loaded looks like " + kind + ", not like a ROM image.";
  };
  const std::pair<std::string, std::string> table[] = {
      {"\x89PNG\r\n\x1A\n" + binary, "a picture"},
      {"BM\x36\x10" + zeros.substr(0, 6) + "\x36" + zeros.substr(0, 3) + "\x28" + zeros,
       "a picture"},
      {"PK\x03\x04" + binary, "an archive"},
      {"..-lh5-" + binary, "an archive"},
      {std::string(257, '\x90') + "ustar" + binary, "an archive"},
      {"MZ" + std::string(76, '\x90') + "This program cannot be run in DOS mode", "a program"},
      {"# map\r\nTYPE_UNIT\r\n", "a text"},
      {"\x94\x52\x97\xBF\n", "a text"},
      {std::string(4095, 'x') + "\n\x01", "a text"},
      {lines, "a text"},
      {":10000000000102030405060708090A0B0C0D0E0F78\r\n",
       "Intel HEX text (Exchange > Load any form takes it)"},
      {"S1040000417A\n", "S-record text (Exchange > Load any form takes it)"},
      {": hex\r\n", "a text"},
      {"\xFF\xFF\n\xFF\xFF", ""},
      {"text\n\x01", ""}};
  for (const auto& [bytes, kind] : table) {
    loadImage({bytes.begin(), bytes.end()});
    EXPECT_EQ(shown(), notice(kind)) << bytes.substr(0, 30);
  }
  loadImage({'P', 'K', 3, 4});
  pickFile("load_bin_file", "gone.bin");
  EXPECT_EQ(shown(), "") << "there is no image any more";
}

TEST_F(Notices, EntriesOutsideTheImageAndAFileWithoutKeywordsAreNamedBeforeAnyBox) {
  startWithMap(smallMap());
  std::string whileBoxStood;
  desk.whileAsking = [&] { whileBoxStood = shown(); };
  loadImage(patternImage(0x220));
  EXPECT_EQ(whileBoxStood,
            "2 entries of the address map lie outside the image (the map seems made for 1024 "
            "bytes): caption, caption");
  loadImage(patternImage(0x250));
  EXPECT_EQ(shown(), "");
  loadImage(patternImage(0x24F));
  EXPECT_TRUE(shown().starts_with("1 entry of the address map lies outside the image (the map"));
  useMap("TYPE_UNIT\r\nX\r\n" + mapBlock("K_DATA", "-1", 1, 1, 2));
  EXPECT_EQ(shown(), "1 entry of the address map lies outside the image: caption");
  useMap("just\r\nlines\r\n");
  EXPECT_EQ(shown(), "used.adr is no address map: none of its lines is a keyword.");
  start();
  EXPECT_EQ(shown(), "used.adr is no address map: none of its lines is a keyword.");
}

TEST_F(Notices, WhatOthersDidToTheImagesFileIsSeenOnReturnAndBeforeASave) {
  namespace fs = std::filesystem;
  loadSmallCar();
  const Bytes image = patternImage(0x400);
  const Bytes other = patternImage(0x400, 2);
  const auto cameBack = [] {
    form1().userActivate();
    const std::string text = shown();
    return text.substr(0, text.find(" ("));
  };
  int day = 0;
  const auto write = [&](const std::string& name, const Bytes& bytes) {
    writeBytes(name, bytes);
    fs::last_write_time(path(name), fs::file_time_type::clock::now() + std::chrono::days(++day));
  };
  const std::string changed = "image.bin was changed by others";
  const std::string replaced = "The save replaced what others had written to image.bin";
  const std::string gone = "image.bin isn't in its place any more, or can't be read.";
  EXPECT_EQ(cameBack(), "");
  write("image.bin", image);
  EXPECT_EQ(cameBack(), "") << "the same bytes at another time";
  for (const Bytes& bytes : {other, patternImage(0x3FF), Bytes{}}) {
    write("image.bin", bytes);
    EXPECT_EQ(cameBack(), changed) << bytes.size();
    close();
    EXPECT_EQ(cameBack(), "") << "closed";
  }
  fs::remove(path("image.bin"));
  EXPECT_EQ(cameBack(), gone);
  pick("update_bin_file");
  EXPECT_EQ(shown(), "");
  const auto time = fs::last_write_time(path("image.bin"));
  EXPECT_EQ(cameBack(), "");
  writeBytes("image.bin", other);
  fs::last_write_time(path("image.bin"), time);
  EXPECT_EQ(cameBack(), "") << "neither size nor time tells it";
  pick("update_bin_file");
  EXPECT_EQ(cameBack(), replaced) << "but a save looks at the bytes";
  EXPECT_EQ(readBytes("image.bin"), image);
  pick("update_bin_file");
  EXPECT_EQ(cameBack(), "");
  write("image.bin", other);
  EXPECT_EQ(cameBack(), changed);
  form1().noticeAction1.userClick();
  EXPECT_TRUE(editorState.image == other && shown().empty());
  saveImage("next.bin");
  write("image.bin", image);
  EXPECT_EQ(cameBack(), "") << "it is the image's file no more";
  editorState.splitRomKbit = "64";
  editorState.splitFormat = "BINARY";
  for (const char* half : {"odd", "even"}) writeBytes(half, patternImage(8192));
  for (const bool saved : {false, true}) {
    pick("odd_even_file");
    chooseFiles({"odd", "even"});
    desk.boxAnswers.assign(saved ? 2 : 0, BoxAnswer::ok);
    saved ? oddeven.Command2.userClick() : oddeven.Command1.userClick();
    chooseFiles({});
    EXPECT_EQ(cameBack(), saved ? "The save replaced what others had written to odd" : "");
    if (saved) continue;
    write("odd", patternImage(8192, 3));
    EXPECT_EQ(cameBack(), "odd was changed by others");
  }
}

TEST_F(Notices, WhatTheProgramCannotWriteForItselfIsToldUntilItCan) {
  namespace fs = std::filesystem;
  loadSmallCar();
  const std::tuple<const char*, const char*, std::function<void()>> table[] = {
      {"zelkova.ini", "The settings file zelkova.ini can't be written: [75] Path/File access error",
       [this] { useMap(smallMap()); }},
      {"error.log", "The log error.log can't be written: [75] Path/File access error",
       [] { logError("x", 57, "text"); }}};
  for (const auto& [file, text, write] : table) {
    fs::remove(path(file));
    fs::create_directory(path(file));
    write();
    EXPECT_EQ(shown(), text);
    fs::remove(path(file));
    write();
    EXPECT_EQ(shown(), "");
  }
  for (const bool works : {false, true}) {
    desk.storeWorks = works;
    saveImage(works ? "a.bin" : "b.bin");
    EXPECT_EQ(shown(), works ? "" : "The list of recent files can't be written");
  }
}

}  // namespace
