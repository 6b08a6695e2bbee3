#include "support.h"

#include <fstream>
#include <random>

#include "frontend/form1_loading.h"
#include "frontend/startup.h"
#include "platform/text_encoding.h"

ProgramTest::ProgramTest() : folder(folderOf(scratch / "x")) {
  discardForm1();
  editorState = EditorState{};
  useDesktop(&desk);
}

ProgramTest::~ProgramTest() {
  for (const std::string& question : desk.unexpected) {
    ADD_FAILURE() << "unexpected question: " << question;
  }
  discardForm1();
  useDesktop(nullptr);
}

void ProgramTest::start() {
  editorState.appPath = folder;
  loadForm1();
  desk.showWindow(form1());
}

void ProgramTest::startWithMap(const std::string& addressMap) {
  writeText("map.adr", addressMap);
  writeText("zelkova.ini", firstSettings("map.adr"));
  start();
}

void ProgramTest::startAnew() {
  discardForm1();
  editorState = EditorState{};
  desk.boxes.clear();
  desk.shownWindows.clear();
  start();
}

void ProgramTest::startAnewWithMap(const std::string& addressMap) {
  writeText("map.adr", addressMap);
  writeText("zelkova.ini", firstSettings("map.adr"));
  startAnew();
}

void ProgramTest::loadSmallCar() {
  startWithMap(smallMap());
  loadImage(patternImage(0x400));
}

void ProgramTest::useMap(const std::string& addressMap) {
  writeText("used.adr", addressMap);
  pickFile("load_map_addr", "used.adr");
}

void ProgramTest::writeText(const std::string& name, const std::string& text) const {
  const std::string bytes = encodeText(text);
  writeBytes(name, {bytes.begin(), bytes.end()});
}

void ProgramTest::writeBytes(const std::string& name, const Bytes& bytes) const {
  const std::string utf8 = path(name);
  std::ofstream file(std::filesystem::path(std::u8string(utf8.begin(), utf8.end())),
                     std::ios::binary);
  file.write(reinterpret_cast<const char*>(bytes.data()),
             static_cast<std::streamsize>(bytes.size()));
}

Bytes ProgramTest::readBytes(const std::string& name) const {
  return fileExists(path(name)) ? readFile(path(name)) : Bytes{};
}

std::string ProgramTest::readText(const std::string& name) const {
  const Bytes bytes = readBytes(name);
  return decodeText({reinterpret_cast<const char*>(bytes.data()), bytes.size()});
}

void ProgramTest::pick(const std::string& name) {
  MenuItem* item = form1().menuBar.find(name);
  ASSERT_NE(item, nullptr) << name;
  item->userPick();
}

void ProgramTest::pickFile(const std::string& command, const std::string& name) {
  desk.openAnswers.push_back(path(name));
  pick(command);
}

void ProgramTest::loadImage(const Bytes& bytes, const std::string& name) {
  writeBytes(name, bytes);
  pickFile("load_bin_file", name);
}

Bytes ProgramTest::saveImage(const std::string& name) {
  desk.saveAnswers.push_back(path(name));
  pick("write_bin_file");
  return readBytes(name);
}

void ProgramTest::selectTab(int tab) { form1().TabStrip1.userSelect(tab); }

void ProgramTest::leaveDialogs() {
  while (desk.shownWindows.back() != &form1()) {
    Window& dialog = *desk.shownWindows.back();
    desk.openAnswers = {""};  // a pair's first file
    dialog.userEnter();
    desk.openAnswers.clear();
    if (dialog.loaded() && desk.shownWindows.back() == &dialog) dialog.userClose();
  }
}

void ProgramTest::enterCell(Grid& grid, int row, int column, const std::string& answer) {
  drag(grid, row, column, row, column);
  desk.textAnswers.push_back(answer);
  grid.userDoubleClick();
  EXPECT_TRUE(desk.textAnswers.empty()) << "no prompt for " << answer;
}

std::string ProgramTest::lastBox() const {
  return desk.boxes.empty() ? "" : desk.boxes.back().text;
}

std::string ProgramTest::told() {
  std::string texts;
  for (const MessageBox& box : desk.boxes) texts += (texts.empty() ? "" : "|") + box.text;
  desk.boxes.clear();
  return texts;
}

std::string mapBlock(const std::string& keyword, const std::string& address, int columns, int rows,
                     int bytes, const std::string& scale, const std::string& caption) {
  return keyword + "\r\n" + address + "\r\n" + std::to_string(columns) + "\r\n" +
         std::to_string(rows) + "\r\n" + std::to_string(bytes) + "\r\n" + scale + "\r\n" + caption +
         "\r\n";
}

std::string smallMap() {
  return "# a small car\r\nTYPE_UNIT\r\nSMALL\r\n" + mapBlock("HIGH_FUEL", "&H100", 8, 4, 32) +
         mapBlock("REG_FUEL", "&H140", 8, 4, 32) + mapBlock("TP_SCALE_FUEL", "&H180", 8, 1, 8) +
         mapBlock("RPM_SCALE_FUEL", "&H190", 4, 1, 4, "50") +
         mapBlock("VQ_MAP", "&H200", 8, 1, 16) + mapBlock("TTP_MAX", "&H220", 4, 1, 4) +
         mapBlock("ADD_MAP1", "&H240", 4, 4, 16, "2") + mapBlock("K_DATA", "&H20", 1, 1, 2) +
         mapBlock("REV1_LIMIT", "&H30", 1, 1, 2, "12.5") +
         mapBlock("SPEED1_LIMIT", "&H34", 1, 1, 1, "1");
}

Bytes patternImage(std::size_t size, std::uint32_t seed) {
  std::mt19937 random(seed);
  Bytes bytes(size);
  for (std::uint8_t& byte : bytes) byte = static_cast<std::uint8_t>(random());
  return bytes;
}

std::string firstSettings(const std::string& addressFile) {
  return "Version\r\n" + addressFile +
         "\r\n 1998 \r\n 370 \r\n 4 \r\n\r\n\r\n 128 \r\n 125 \r\n 1 \r\n+\r\n-\r\n"
         " 4096 \r\n 16 \r\n 17 \r\n 1 \r\n 1 \r\n256\r\nBINARY\r\nTRAN\r\n 0 \r\n"
         " 30 \r\n 14 \r\n 1 \r\n 2 \r\n";
}

std::string rowText(const Grid& grid, int row, int count) {
  std::string texts;
  for (int c = 0; c < count; ++c) texts += grid.text(row, c) + ' ';
  return texts;
}

void drag(Grid& grid, int row, int column, int rowSel, int columnSel) {
  grid.userSelect({row, column, rowSel, columnSel});
}

void typeOver(TextBox& box, const std::string& keys) {
  box.userFocus();
  if (keys.empty()) return box.userEdit("");
  std::string before;
  for (const char key : keys) {
    std::string text = before + key;
    if (key == '\b')
      text = before.substr(0, before.size() - std::min<std::size_t>(before.size(), 1));
    if (key != '\b' && box.keyFilter && !box.keyFilter(static_cast<unsigned char>(key))) {
      const std::string kept = box.text();
      box.userEdit(text, TextBox::By::keys);
      EXPECT_EQ(box.text(), kept) << "a refused key leaves the text";
      continue;
    }
    box.userEdit(text, TextBox::By::keys);
    before = box.text();
  }
}

int repaintsOf(Grid& grid, const std::function<void()>& command) {
  int count = 0;
  const auto former = grid.observer;
  grid.observer = [&count](const Change& change) {
    if (change.kind == Change::cell || change.kind == Change::cells) ++count;
  };
  command();
  grid.observer = former;
  return count;
}
