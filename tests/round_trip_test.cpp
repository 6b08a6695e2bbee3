// Nothing changes that nobody edited: random images under random address maps are loaded, drawn,
// written back, saved and put under another map, and every byte stays as it was. Only a limit whose
// scale is no whole number may lose what its box can't show.
#include <cmath>
#include <filesystem>

#include "generators.h"
#include "support.h"

namespace {

class RoundTrip : public ProgramTest {
 protected:
  void begin(const std::string& addressMap) {
    // Some file systems bring a file to disk when it is written over.
    for (const char* name : {"map.adr", "zelkova.ini", "image.bin"}) {
      std::filesystem::remove(path(name));
    }
    startAnewWithMap(addressMap);
    mayChange.assign(editorState.image.size(), false);
    noteLossyBytes();
  }
  void noteLossyBytes() {
    for (const ParamKind& kind : paramKinds()) {
      const ParamEntry& entry = editorState.addressMap.param(kind.id);
      if (!kind.scaled() || !entry.present() || entry.scale == std::floor(entry.scale)) continue;
      std::fill_n(mayChange.begin() + entry.address, entry.bytes, true);
    }
  }
  // The bytes that differ from `image` without leave.
  std::string strangeChanges(const Bytes& image) const {
    const Bytes& now = editorState.image;
    if (now.size() != image.size()) return "size";
    std::string places;
    for (std::size_t i = 0; i < image.size(); ++i) {
      if (now[i] != image[i] && !mayChange[i]) places += std::to_string(i) + ' ';
    }
    return places;
  }
  // Picks the load command and gives it up: its guard writes back, and asks if a byte differs.
  void writeBackByTheGuard(const Bytes& image) {
    desk.boxAnswers = {BoxAnswer::no};
    desk.openAnswers = {""};
    pick("load_bin_file");
    EXPECT_EQ(desk.boxAnswers.empty(), editorState.image != image);
    EXPECT_EQ(desk.openAnswers.empty(), editorState.image == image);
    desk.boxAnswers.clear();
    desk.openAnswers.clear();
    std::erase_if(desk.boxes, [](const MessageBox& b) { return b.buttons == BoxButtons::yesNo; });
  }
  void changeMap(const std::string& addressMap) {
    useMap(addressMap);
    noteLossyBytes();
  }
  std::vector<bool> mayChange;
};

TEST_F(RoundTrip, RandomCarsKeepEveryByte) {
  int kept = 0;
  for (std::uint32_t seed = 1; seed <= 1500; ++seed) {
    SCOPED_TRACE(seed);
    Random random(seed);
    const Bytes image = randomImage(random);
    begin(randomAddressMap(random, image.size()));
    loadImage(image);
    for (const MapKind& kind : mapKinds()) ASSERT_TRUE(gridOf(kind).visible()) << kind.keyword;
    writeBackByTheGuard(image);
    ASSERT_EQ(strangeChanges(image), "");
    if (seed % 64 == 0) {
      ASSERT_EQ(saveImage("saved" + std::to_string(seed)), editorState.image);
    }
    if (seed % 32 == 0) {
      changeMap(randomAddressMap(random, image.size()));
      ASSERT_EQ(strangeChanges(image), "");
      writeBackByTheGuard(editorState.savedImage);
      ASSERT_EQ(strangeChanges(image), "");
    }
    ASSERT_TRUE(desk.boxes.empty()) << lastBox();
    kept += editorState.image == image;
  }
  EXPECT_GT(kept, 150) << "the generator makes too few exact cars to tell anything";
}

// What a limit loses is less than one shown unit.
TEST_F(RoundTrip, ALossyLimitLosesLessThanWhatItsBoxShows) {
  for (std::uint32_t seed = 1; seed <= 200; ++seed) {
    Random random(seed);
    Bytes image = randomImage(random);
    const int bytes = randomNumber(random, 1, 4);
    const float scale = static_cast<float>(randomNumber(random, 1, 1999)) / 100;
    if (bytes == 4) image[8] &= 0x7F;
    begin("TYPE_UNIT\r\nCAR\r\n" + mapBlock("REV1_LIMIT", "8", 0, 0, bytes, std::to_string(scale)));
    loadImage(image);
    const auto number = [&](const Bytes& from) {
      double value = 0;
      for (int i = 0; i < bytes; ++i) value = value * 256 + from[static_cast<std::size_t>(8 + i)];
      return value;
    };
    writeBackByTheGuard(image);
    const double lost = number(image) - number(editorState.image);
    EXPECT_TRUE(lost >= 0 && lost < 1 / scale + 1) << seed << " scale " << scale;
  }
}

}  // namespace
