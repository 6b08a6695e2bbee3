// Intel HEX against the tools that tuners and EPROM programmers use: what is written here
// they read byte for byte, what they write is read here. A missing tool fails.
#include <algorithm>
#include <cstdlib>
#include <map>

#include "imagefiles/intel_hex_file.h"
#include "platform/failure.h"
#include "rom/intel_hex_reader.h"
#include "support.h"

namespace {

class Peers : public ProgramTest {
 protected:
  void run(const std::string& command) {
    ASSERT_EQ(std::system(("cd '" + folder + "' && " + command).c_str()), 0) << command;
  }
  // Runs `command` for each image, whose name is $n.
  void runForAll(const std::string& command) {
    run("set -e; for n in *.bin; do n=${n%.bin}; " + command + "; done");
  }
};

TEST_F(Peers, ReadWhatWeWriteAndWriteWhatIsReadHere) {
  std::map<std::string, Bytes> images;
  for (const std::size_t size :
       {1, 2, 31, 32, 33, 34, 65535, 65536, 65537, 131072, 262144, 1572864}) {
    Bytes& image = images["image-" + std::to_string(size)] = patternImage(size);
    if (size > 65536) std::fill_n(image.begin() + 500, 65000, 0xFF);  // as in unused firmware
  }
  for (const auto& [name, bytes] : images) {
    writeIntelHex(path(name + ".hex"), bytes);
    writeBytes(name + ".bin", bytes);
  }
  writeText("read.py",
            "import glob, intelhex\r\n"
            "for path in glob.glob('*.hex'):\r\n"
            "  image = intelhex.IntelHex(path)\r\n"
            "  assert image.minaddr() == 0\r\n"
            "  image.tobinfile(path[:-3] + 'intelhex')\r\n");
  run("/usr/bin/python3 read.py");
  runForAll("objcopy -I ihex -O binary $n.hex $n.objcopy");
  runForAll("srec_cat $n.hex -intel -o $n.srec -binary 2>errors; test ! -s errors");
  runForAll("objcopy -I binary -O ihex $n.bin $n.theirs");
  for (const auto& [name, bytes] : images) {
    SCOPED_TRACE(name);
    for (const char* tool : {".objcopy", ".srec", ".intelhex"}) {
      EXPECT_TRUE(readBytes(name + tool) == bytes) << tool;
    }
    const auto size = std::ssize(bytes);
    const Bytes ours = readBytes(name + ".hex"), theirs = readBytes(name + ".theirs");
    EXPECT_TRUE(readIntelHex(ours, size) == bytes);
    EXPECT_THROW(readIntelHex(ours, size - 1), Failure);
    // Theirs has 16 bytes a record; a last record of two is passed over.
    const auto passedOver = size % 16 == 2 ? 2 : 0;
    if (size == passedOver || size / 16 > maximumHexLines) {
      EXPECT_THROW(readIntelHex(theirs, size), Failure);
    } else {
      EXPECT_TRUE(readIntelHex(theirs, size) == Bytes(bytes.begin(), bytes.end() - passedOver));
    }
  }
}

}  // namespace
