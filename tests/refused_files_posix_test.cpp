// Files that may not be written, met through the menu: the old file stands, no other appears, and
// the guard still asks.
#include <unistd.h>

#include <filesystem>

#include "support.h"

namespace {

namespace fs = std::filesystem;

class RefusedFiles : public ProgramTest {
 protected:
  RefusedFiles() {
    startWithMap(smallMap());
    loadImage(image);
    form1().Grid1.setText(1, 1, "9");
    writeBytes("target.bin", old);
    fs::permissions(folder, fs::perms::all);
  }
  // The superuser may do everything: `act` runs as nobody.
  static void asNobody(const std::function<void()>& act) {
    const bool superuser = geteuid() == 0;
    ASSERT_TRUE(!superuser || seteuid(65534) == 0);
    act();
    ASSERT_TRUE(!superuser || seteuid(0) == 0);
  }
  void saveOver(const std::string& name) {
    if (fs::exists(path(name))) desk.boxAnswers.push_back(BoxAnswer::ok);
    desk.saveAnswers.push_back(path(name));
    pick("write_bin_file");
  }
  // The guard still asks, and is told to keep the data; nothing on disk has changed.
  void expectNothingLost() {
    told();
    desk.boxAnswers.assign(1, BoxAnswer::no);
    pick("load_bin_file");
    EXPECT_TRUE(told().starts_with("It is crowded as reading"));
    EXPECT_EQ(std::distance(fs::directory_iterator(folder), {}), 5);
    EXPECT_TRUE(readBytes("target.bin") == old && readBytes("image.bin") == image);
  }

  const Bytes image = patternImage(0x400, 1);
  const Bytes old = patternImage(0x80, 2);
};

TEST_F(RefusedFiles, AReadOnlyTargetStandsByteForByte) {
  fs::create_directory(path("locked"));
  writeText("locked/open.bin", "old");
  fs::permissions(path("locked/open.bin"), fs::perms(0666));
  fs::permissions(path("locked"), fs::perms(0555));
  fs::permissions(path("target.bin"), fs::perms(0444));
  for (const char* name : {"target.bin", "locked/new.bin", "locked/open.bin"}) {
    asNobody([&] { saveOver(name); });
    EXPECT_EQ(lastBox(), "*ERROR = [75]") << name;
    expectNothingLost();
  }
  EXPECT_EQ(std::distance(fs::directory_iterator(path("locked")), {}), 1);
  EXPECT_EQ(readText("locked/open.bin"), "old");
}

}  // namespace
