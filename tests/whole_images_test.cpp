// Whole images, real and random, up to 1 MiB: loaded, saved and loaded again in each form, byte for
// byte.
#include <filesystem>

#include "imagefiles/intel_hex_reader.h"
#include "imagefiles/odd_even.h"
#include "plain_hex_reader.h"
#include "support.h"

namespace {

namespace fs = std::filesystem;

class WholeImages : public ProgramTest {
 protected:
  void SetUp() override { startWithMap("TYPE_UNIT\nANY\n"); }

  void answerSaves(std::initializer_list<const char*> names) {
    for (const char* name : names) {
      fs::remove(path(name));
      desk.saveAnswers.push_back(path(name));
    }
  }

  void throughIntelHex(const Bytes& image) {
    answerSaves({"again.hex"});
    pick("ANY_NAME_SAVE_IntelHEX");
    const std::string text = readText("again.hex");
    ASSERT_TRUE(readHexPlainly(text, 1 << 21) == image);
    pickFile("LOAD_IntelHEX_FILE", "again.hex");
    const bool fits = static_cast<std::int64_t>(image.size()) <= imageHexCapacity;
    ASSERT_EQ(told(), fits ? "" : "*ERROR = [9]　Ill. DATA? again.hex");
    ASSERT_TRUE(editorState.image == (fits ? image : Bytes{}));
  }

  // Pairs exist in six sizes; each that the image fills is tried.
  void throughPairs(const Bytes& image, const char* format) {
    for (std::size_t size = 0; size < oddeven.List1.items().size(); ++size) {
      const std::size_t bytes = std::stoul(oddeven.List1.items()[size]) * 128;
      if (bytes > image.size()) continue;
      SCOPED_TRACE(format + std::to_string(bytes));
      loadImage(image);
      editorState.splitRomKbit = oddeven.List1.items()[size];
      editorState.splitFormat = format;
      pick("odd_even_file");
      answerSaves({"odd.half", "even.half"});
      oddeven.Command2.userClick();
      loadImage({1});
      desk.openAnswers = {path("odd.half"), path("even.half")};
      pick("odd_even_file");
      oddeven.Command1.userClick();
      ASSERT_EQ(told(), "");
      ASSERT_EQ(editorState.image.size(), bytes);
      ASSERT_TRUE(std::equal(editorState.image.begin(), editorState.image.end(), image.begin()));
    }
  }
};

TEST_F(WholeImages, KeepEveryByteInEachForm) {
  std::vector<Bytes> images;
  for (const std::size_t size : {1, 2, 31, 65536, 131072, 140001, 1 << 20}) {
    images.push_back(patternImage(size));
  }
  for (const auto& file : fs::directory_iterator("/usr/share/seabios")) {
    fs::copy(file.path(), path("real.bin"), fs::copy_options::overwrite_existing);
    images.push_back(readBytes("real.bin"));
  }
  ASSERT_GE(images.size(), 20U);
  for (const Bytes& image : images) {
    SCOPED_TRACE(image.size());
    loadImage(image);
    ASSERT_TRUE(saveImage("again.bin") == image);
    pickFile("load_bin_file", "again.bin");
    ASSERT_EQ(told(), "");
    ASSERT_TRUE(editorState.image == image);
    ASSERT_NO_FATAL_FAILURE(throughIntelHex(image));
    for (const char* format : {"BINARY", "IntelHEX"}) {
      ASSERT_NO_FATAL_FAILURE(throughPairs(image, format));
    }
    fs::remove(path("again.bin"));
  }
}

}  // namespace
