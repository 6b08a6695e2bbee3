// Nothing changes that nobody edited: random images under random address maps are loaded, drawn,
// written back, saved and put under another map, and every byte stays as it was. Only a limit whose
// scale is no whole number may lose what its box can't show.
#include <cmath>
#include <filesystem>

#include "core/map_kinds.h"
#include "generators.h"
#include "support.h"

namespace {

class RoundTrip : public ProgramTest {
 protected:
  void begin(const std::string& addressMap, const Bytes& image) {
    // Some file systems bring a file to disk when it is written over.
    for (const char* name : {"map.adr", "zelkova.ini", "image.bin"}) {
      std::filesystem::remove(path(name));
    }
    startAnewWithMap(addressMap);
    loadImage(image);
    mayChange.assign(image.size(), false);
    noteLossyBytes();
  }
  void noteLossyBytes() {
    for (const ParamKind& kind : paramKinds()) {
      const ParamEntry& entry = editorState.addressMap.param(kind.id);
      if (!kind.scaled() || !entry.present() || entry.scale == std::floor(entry.scale)) continue;
      std::fill_n(mayChange.begin() + entry.address, entry.bytes, true);
    }
  }
  // Picks the load command and gives it up: its guard writes back, and asks if a byte differs from
  // the saved ones. None differs from `image` without leave.
  void expectKept(const Bytes& image) {
    desk.boxAnswers = {BoxAnswer::no};
    desk.openAnswers = {""};
    pick("load_bin_file");
    const bool differs = editorState.image != editorState.savedImage;
    ASSERT_EQ(told().empty(), !differs);
    desk.boxAnswers.clear();
    desk.openAnswers.clear();
    const Bytes& now = editorState.image;
    ASSERT_EQ(now.size(), image.size());
    for (std::size_t i = 0; i < image.size(); ++i) {
      ASSERT_TRUE(now[i] == image[i] || mayChange[i]) << "byte " << i;
    }
  }
  std::vector<bool> mayChange;
};

TEST_F(RoundTrip, RandomCarsKeepEveryByte) {
  int kept = 0;
  for (std::uint32_t seed = 1; seed <= 1500; ++seed) {
    SCOPED_TRACE(seed);
    Random random(seed);
    const Bytes image = randomImage(random);
    begin(randomAddressMap(random, image.size()), image);
    ASSERT_EQ(told(), "");
    for (const MapKind& kind : mapKinds()) ASSERT_TRUE(gridOf(kind).visible()) << kind.keyword;
    ASSERT_NO_FATAL_FAILURE(expectKept(image));
    kept += editorState.image == image;
    if (seed % 32 == 0) {
      ASSERT_EQ(saveImage("saved" + std::to_string(seed)), editorState.image);
      useMap(randomAddressMap(random, image.size()));
      ASSERT_EQ(told(), "");
      noteLossyBytes();
      ASSERT_NO_FATAL_FAILURE(expectKept(image));
    }
  }
  EXPECT_TRUE(kept > 150 && kept < 1500) << "too few exact cars, or none was written back";
}

}  // namespace
