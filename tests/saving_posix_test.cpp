// Files that may not be read or written, and disks that fill up, met through the menu.
#include <signal.h>
#include <sys/resource.h>
#include <unistd.h>

#include <filesystem>

#include "support.h"

namespace {

namespace fs = std::filesystem;

// The superuser may do everything: within this scope the process is nobody.
class AsNobody {
 public:
  AsNobody() : superuser_(geteuid() == 0) { EXPECT_TRUE(!superuser_ || seteuid(65534) == 0); }
  ~AsNobody() { EXPECT_TRUE(!superuser_ || seteuid(0) == 0); }
  AsNobody(const AsNobody&) = delete;
  AsNobody& operator=(const AsNobody&) = delete;

 private:
  bool superuser_;
};

// No file may grow beyond `bytes` within this scope.
class FullDisk {
 public:
  explicit FullDisk(rlim_t bytes) : before_(signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &limit_);
    const rlimit small{bytes, limit_.rlim_max};
    EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
  }
  ~FullDisk() {
    EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &limit_), 0);
    signal(SIGXFSZ, before_);
  }
  FullDisk(const FullDisk&) = delete;
  FullDisk& operator=(const FullDisk&) = delete;

 private:
  void (*before_)(int);
  rlimit limit_{};
};

class Saving : public ProgramTest {
 protected:
  Saving() {
    startWithMap(smallMap());
    loadImage(image);
    form1().Grid1.setText(1, 1, "9");
    writeBytes("target.bin", old);
    fs::permissions(folder, fs::perms::all);
  }
  int entries() const {
    return static_cast<int>(std::distance(fs::directory_iterator(folder), {}));
  }
  void saveOver(const std::string& name) {
    desk.boxes.clear();
    if (fs::exists(path(name))) desk.boxAnswers.push_back(BoxAnswer::ok);
    desk.saveAnswers.push_back(path(name));
    pick("write_bin_file");
  }
  // The guard still asks, and is told to keep the data.
  bool guardAsks() {
    const std::size_t before = desk.boxes.size();
    desk.boxAnswers.assign(1, BoxAnswer::no);
    pick("load_bin_file");
    return desk.boxAnswers.empty() && desk.boxes.size() == before + 1;
  }

  const Bytes image = patternImage(0x400, 1);
  const Bytes old = patternImage(0x80, 2);
};

TEST_F(Saving, AFileThatMayNotBeWrittenStandsByteForByte) {
  fs::permissions(path("target.bin"), fs::perms::owner_read | fs::perms::others_read);
  fs::create_directory(path("locked"));
  fs::permissions(path("locked"), fs::perms(0555));
  const int before = entries();
  for (const char* name : {"target.bin", "locked/new.bin"}) {
    {
      const AsNobody nobody;
      saveOver(name);
    }
    EXPECT_EQ(lastBox(), "*ERROR = [75]") << name;
    EXPECT_TRUE(guardAsks());
  }
  EXPECT_EQ(readBytes("target.bin"), old);
  EXPECT_EQ(entries(), before);
  EXPECT_TRUE(fs::is_empty(path("locked")));
}

TEST_F(Saving, ADiskThatFillsUpLeavesTheOldFileAndNoOther) {
  const int before = entries();
  const auto failsOnAFullDisk = [&](rlim_t bytes, const char* command) {
    {
      const FullDisk full(bytes);
      if (command) {
        pick(command);
      } else {
        saveOver("target.bin");
      }
    }
    return guardAsks() && entries() == before;
  };
  for (const rlim_t bytes : {0, 1, 0x3FF}) {
    EXPECT_TRUE(failsOnAFullDisk(bytes, nullptr)) << bytes;
    EXPECT_TRUE(desk.boxes.at(1).text.starts_with("*ERROR = [")) << bytes;
    EXPECT_TRUE(failsOnAFullDisk(bytes, "update_bin_file")) << bytes;
  }
  EXPECT_EQ(readBytes("target.bin"), old);
  EXPECT_EQ(readBytes("image.bin"), image);
  saveOver("target.bin");
  EXPECT_EQ(readBytes("target.bin")[0x100], 9);
}

TEST_F(Saving, SettingsAndLogOutliveAFullDisk) {
  writeText("error.log", "older\r\n");
  const std::string settings = readText("zelkova.ini");
  desk.openAnswers.push_back(path("map.adr"));
  {
    const FullDisk full(4);
    pick("load_map_addr");
    saveOver("target.bin");
  }
  EXPECT_EQ(readText("zelkova.ini"), settings);
  EXPECT_EQ(readText("error.log"), "older\r\n");
  EXPECT_EQ(form1().Label1.caption(), "SMALL");
}

TEST_F(Saving, FilesThatMayNotBeReadAreToldByEachDialog) {
  for (const char* name : {"map.adr", "target.bin"}) {
    fs::permissions(path(name), fs::perms::none);
  }
  const auto failsToOpen = [this](const char* command, const char* name) {
    const AsNobody nobody;
    desk.boxAnswers.assign(1, BoxAnswer::yes);
    desk.openAnswers.push_back(path(name));
    pick(command);
    desk.boxAnswers.clear();
    return lastBox().starts_with("*ERROR = [75]");
  };
  EXPECT_TRUE(failsToOpen("load_map_addr", "map.adr"));
  EXPECT_TRUE(failsToOpen("load_bin_file", "target.bin"));
  EXPECT_TRUE(failsToOpen("comp_bin", "target.bin"));
  EXPECT_EQ(form1().Label1.caption(), "SMALL");
}

}  // namespace
