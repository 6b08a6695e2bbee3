#include "support.h"

#include <fstream>
#include <random>

#include "frontend/form1_loading.h"
#include "frontend/startup.h"
#include "platform/text_encoding.h"

ProgramTest::ProgramTest() { useDesktop(&desk); }

ProgramTest::~ProgramTest() {
  for (const std::string& question : desk.unexpected) {
    ADD_FAILURE() << "unexpected question: " << question;
  }
  end();
  useDesktop(nullptr);
}

void ProgramTest::end() {
  for (Window* window : std::vector(desk.shownWindows)) {
    if (window != &form1()) window->unload();
  }
  discardForm1();
  editorState = EditorState{};
  desk.boxes.clear();
  desk.shownWindows.clear();
}

void ProgramTest::start() {
  if (form1().loaded()) end();
  editorState.appPath = folder;
  loadForm1();
  desk.showWindow(form1());
}

void ProgramTest::startWithMap(const std::string& addressMap) {
  writeText("map.adr", addressMap);
  writeText("zelkova.ini", firstSettings("map.adr"));
  start();
}

void ProgramTest::loadSmallCar() {
  startWithMap(smallMap());
  loadImage(patternImage(0x400));
}

void ProgramTest::useMap(const std::string& addressMap) {
  writeText("used.adr", addressMap);
  pick("load_map_addr", {"used.adr"});
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

void ProgramTest::pick(const std::string& name, const std::vector<std::string>& files) {
  MenuItem* const item = form1().menuBar.find(name);
  ASSERT_NE(item, nullptr) << name;
  if (!files.empty()) chooseFiles(files);
  form1().ProgressBar1.setValue(0);  // whatever the test itself moved
  item->userPick();
  EXPECT_EQ(form1().Label13.caption() + std::to_string(form1().ProgressBar1.value()), "0") << name;
  EXPECT_FALSE(desk.busy) << name;
  if (!files.empty()) chooseFiles({});
}

void ProgramTest::chooseFiles(const std::vector<std::string>& files) {
  desk.openAnswers.clear();
  for (const std::string& file : files) desk.openAnswers.push_back(file.empty() ? "" : path(file));
  desk.saveAnswers = desk.openAnswers;
}

void ProgramTest::loadImage(const Bytes& bytes, const std::string& name) {
  writeBytes(name, bytes);
  pick("load_bin_file", {name});
}

Bytes ProgramTest::saveImage(const std::string& name) {
  pick("write_bin_file", {name});
  return readBytes(name);
}

void ProgramTest::selectTab(int tab) { form1().TabStrip1.userSelect(tab); }

void ProgramTest::enterCell(Grid& grid, int row, int column, const std::string& answer) {
  drag(grid, row, column, row, column);
  desk.textAnswers.push_back(answer);
  grid.userDoubleClick();
  EXPECT_TRUE(desk.textAnswers.empty()) << "no prompt for " << answer;
}

std::string ProgramTest::shown() {
  return form1().noticeText.visible() ? form1().noticeText.caption() : "";
}

std::string ProgramTest::told() {
  std::string texts;
  for (const MessageBox& box : desk.boxes) texts += (texts.empty() ? "" : "|") + box.text;
  desk.boxes.clear();
  return texts;
}

const char* const discardQuestion =
    "It is crowded as reading, though it aren't preserved for data ?";

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

void forEachCell(
    const std::function<void(const MapKind& kind, const Grid& grid, int row, int column)>& visit) {
  for (const MapKind& kind : mapKinds()) {
    const Grid& grid = gridOf(kind);
    for (int row = 0; row < grid.rows(); ++row) {
      for (int column = 0; column < grid.columns(); ++column) visit(kind, grid, row, column);
    }
  }
}

std::string textsOf(const Grid& grid, int firstRow, int firstColumn, const char* between,
                    const char* behind) {
  std::string texts;
  for (int row = firstRow; row < grid.rows(); ++row) {
    for (int column = firstColumn; column < grid.columns(); ++column) {
      texts += grid.text(row, column) + (column + 1 < grid.columns() ? between : behind);
    }
  }
  return texts;
}

void drag(Grid& grid, int row, int column, int rowSel, int columnSel) {
  grid.userSelect({row, column, rowSel, columnSel});
}

void typeOver(TextBox& box, const std::string& keys) {
  box.userFocus();
  if (keys.empty()) return box.userEdit("");
  std::string typed;
  for (const char key : keys) {
    const std::string before = box.text();
    const bool back = key == '\b';
    box.userEdit(back ? typed.substr(0, typed.size() - 1) : typed + key, TextBox::By::keys);
    if (back || !box.keyFilter || box.keyFilter(static_cast<unsigned char>(key))) {
      typed = box.text();
    } else {
      EXPECT_EQ(box.text(), before) << "a refused key leaves the text";
    }
  }
}

void paste(TextBox& box, const std::string& text) {
  typeOver(box, "");
  box.userEdit(text);
}
