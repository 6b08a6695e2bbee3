// Intel HEX against the tools that tuners and EPROM programmers use: what is written here they read
// byte for byte, what they write is read here. A missing tool fails.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "imagefiles/intel_hex_reader.h"
#include "imagefiles/intel_hex_writer.h"
#include "imagefiles/odd_even.h"
#include "platform/failure.h"
#include "platform/files.h"
#include "scratch_folder.h"
#include "support.h"

namespace {

Bytes randomImage(std::size_t size) {
  std::mt19937 random(static_cast<unsigned>(size));
  Bytes bytes(size);
  for (auto& byte : bytes) byte = static_cast<std::uint8_t>(random());
  return bytes;
}

// Firmware as it is sold: code, tables and long empty stretches.
Bytes firmwareImage(std::size_t size) {
  static const Bytes firmware = readFile("/usr/share/seabios/bios-256k.bin");
  Bytes bytes(size);
  // Counted from the end, where the code stands.
  for (std::size_t i = 0; i < size; ++i) {
    bytes[i] = firmware[(firmware.size() - size % firmware.size() + i) % firmware.size()];
  }
  return bytes;
}

struct NamedImage {
  std::string name;
  Bytes bytes;
};

const std::vector<NamedImage>& images() {
  static const std::vector<NamedImage> all = [] {
    std::vector<NamedImage> list;
    for (const std::size_t size :
         {1, 2, 31, 32, 33, 34, 65535, 65536, 65537, 131072, 262144, 1572864}) {
      list.push_back({"random-" + std::to_string(size), randomImage(size)});
      list.push_back({"firmware-" + std::to_string(size), firmwareImage(size)});
    }
    return list;
  }();
  return all;
}

bool run(const std::string& command) { return std::system(command.c_str()) == 0; }

class IntelHexPeers : public testing::Test {
 protected:
  // The image as our text, and as raw bytes for the others.
  void SetUp() override {
    for (const NamedImage& image : images()) {
      writeIntelHex(folder / (image.name + ".hex"), image.bytes);
      replaceFile(folder / (image.name + ".bin"), image.bytes);
    }
  }
  // Each image's file "NAME.out" holds the image.
  void expectSameBytes() {
    for (const NamedImage& image : images()) {
      const std::string path = folder / (image.name + ".out");
      ASSERT_TRUE(fileExists(path)) << image.name;
      EXPECT_TRUE(readFile(path) == image.bytes) << image.name;
    }
  }
  // Runs `command` in the folder for each image, whose name is $1.
  void runForAll(const std::string& command) {
    std::string names;
    for (const NamedImage& image : images()) names += " " + image.name;
    ASSERT_TRUE(run("cd '" + folder.path().string() + "' && set -e; for name in" + names + "; do " +
                    command + "; done"));
  }

  ScratchFolder folder;
};

TEST_F(IntelHexPeers, ObjcopyReadsWhatWeWrite) {
  runForAll("objcopy -I ihex -O binary $name.hex $name.out");
  expectSameBytes();
}

TEST_F(IntelHexPeers, SrecCatReadsWhatWeWriteAndFindsNoFault) {
  runForAll("srec_cat $name.hex -intel -o $name.out -binary 2>$name.err; test ! -s $name.err");
  expectSameBytes();
}

TEST_F(IntelHexPeers, PythonIntelhexReadsWhatWeWrite) {
  std::ofstream(folder / "read.py") << "import glob, intelhex\n"
                                       "for path in glob.glob('*.hex'):\n"
                                       "  image = intelhex.IntelHex(path)\n"
                                       "  assert image.minaddr() == 0\n"
                                       "  image.tobinfile(path[:-3] + 'out')\n";
  ASSERT_TRUE(run("cd '" + folder.path().string() + "' && /usr/bin/python3 read.py"));
  expectSameBytes();
}

TEST_F(IntelHexPeers, OurReaderReadsWhatWeWriteUpToItsCapacity) {
  for (const NamedImage& image : images()) {
    const Bytes text = readFile(folder / (image.name + ".hex"));
    EXPECT_TRUE(readIntelHex(text, 1572864) == image.bytes) << image.name;
    if (image.bytes.size() <= imageHexCapacity) {
      EXPECT_TRUE(readIntelHex(text, imageHexCapacity) == image.bytes) << image.name;
    } else {
      EXPECT_THROW(readIntelHex(text, imageHexCapacity), Failure) << image.name;
    }
  }
}

// What the reader is to make of 16 bytes a record: a last record of two is passed over.
Bytes fromRecordsOf16(Bytes bytes) {
  if (bytes.size() % 16 == 2) bytes.resize(bytes.size() - 2);
  return bytes;
}

TEST_F(IntelHexPeers, WhatObjcopyWritesLoadsHere) {
  runForAll("objcopy -I binary -O ihex $name.bin $name.objcopy");
  for (const NamedImage& image : images()) {
    const Bytes text = readFile(folder / (image.name + ".objcopy"));
    const Bytes expected = fromRecordsOf16(image.bytes);
    if (expected.empty() || expected.size() / 16 > maximumHexLines) {
      EXPECT_THROW(readIntelHex(text, 1572864), Failure) << image.name;
    } else {
      EXPECT_TRUE(readIntelHex(text, 1572864) == expected) << image.name;
    }
  }
}

class OddEvenPeers : public ProgramTest {
 protected:
  ~OddEvenPeers() override { oddeven.unload(); }
  void open(int size) {
    pick("odd_even_file");
    oddeven.List1.userSelect(size);
    oddeven.Option1.userSelect();
  }
  Bytes firstHalf(const std::string& name) {
    Bytes bytes = readBytes(name);
    bytes.resize(bytes.size() / 2);
    return bytes;
  }
};

TEST_F(OddEvenPeers, SplitAsWeSplitAndWhatTheySplitIsJoined) {
  constexpr int kbit1024 = 4;
  startWithMap("TYPE_UNIT\r\nCAR\r\n" + mapBlock("HIGH_FUEL", "&H100", 16, 16, 256));
  const Bytes image = firmwareImage(131072);
  loadImage(image);
  open(kbit1024);
  desk.saveAnswers = {path("odd.bin"), path("even.bin")};
  oddeven.Command2.userClick();
  const std::string go = "cd '" + folder + "' && ";
  ASSERT_TRUE(run(go + "srec_cat image.bin -binary -split 2 0 -o odd.srec -binary"));
  ASSERT_TRUE(run(go + "srec_cat image.bin -binary -split 2 1 -o even.srec -binary"));
  ASSERT_TRUE(run(go + "objcopy -I binary -O binary -i 2 -b 0 image.bin odd.objcopy"));
  ASSERT_TRUE(run(go + "objcopy -I binary -O binary -i 2 -b 1 image.bin even.objcopy"));
  for (const std::string tool : {".srec", ".objcopy"}) {
    SCOPED_TRACE(tool);
    EXPECT_TRUE(firstHalf("odd.bin") == readBytes("odd" + tool));
    EXPECT_TRUE(firstHalf("even.bin") == readBytes("even" + tool));
    editorState.imageSize = 0;
    open(kbit1024);
    desk.openAnswers = {path("odd" + tool), path("even" + tool)};
    oddeven.Command1.userClick();
    EXPECT_TRUE(editorState.image == image);
  }
}

}  // namespace
