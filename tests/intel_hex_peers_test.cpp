// Intel HEX against the tools that tuners and EPROM programmers use: what is written here
// they read byte for byte, what they write is read here. A missing tool fails.
#include <cstdlib>
#include <map>

#include "imagefiles/intel_hex_reader.h"
#include "imagefiles/intel_hex_writer.h"
#include "platform/failure.h"
#include "platform/files.h"
#include "support.h"

namespace {

// Firmware as it is sold: code, tables and long empty stretches. Counted from the end, where the
// code stands.
Bytes firmwareImage(std::size_t size) {
  static const Bytes firmware = readFile("/usr/share/seabios/bios-256k.bin");
  const std::size_t start = firmware.size() - size % firmware.size();
  Bytes bytes(size);
  for (std::size_t i = 0; i < size; ++i) bytes[i] = firmware[(start + i) % firmware.size()];
  return bytes;
}

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
    images["random-" + std::to_string(size)] = patternImage(size);
    images["firmware-" + std::to_string(size)] = firmwareImage(size);
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
