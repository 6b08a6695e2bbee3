// The command line as a process: exit codes, results and messages of each command over small files.
#include <sys/wait.h>
#include <cstdlib>

#include "scratch_folder.h"
#include "support.h"

namespace {

const ScratchFolder folder;

struct Outcome {
  int code;
  std::string out;
  std::string error;
};

std::string textOf(const char* name) {
  const Bytes bytes = readFile(folder / name);
  return {bytes.begin(), bytes.end()};
}

Outcome run(const std::string& arguments) {
  const std::string command =
      "cd " + (folder / "") + " && " + BATCH + " " + arguments + " >out 2>err";
  const int status = std::system(command.c_str());
  return {WEXITSTATUS(status), textOf("out"), textOf("err")};
}

class Batch : public testing::Test {
 protected:
  Batch() {
    replaceFile(folder / "car.adr",
                bytesOf("TYPE_UNIT\nCAR\nHIGH_FUEL,16,4,2,8,2,Fuel\nTP_SCALE_FUEL,24,4,1,4,2,Load\n"
                        "REV1_LIMIT,28,1,1,1,50,Rev\n"));
    replaceFile(folder / "a.bin", patternImage(32));
    Bytes other = patternImage(32);
    other[17] = static_cast<std::uint8_t>(other[17] + 3);
    other[2] = 0;
    replaceFile(folder / "b.bin", other);
  }
};

TEST_F(Batch, TellsWhatDiffersAndHowItEnded) {
  const std::tuple<const char*, int, const char*, const char*> table[] = {
      {"diff a.bin a.bin --map car.adr", 0, "", ""},
      {"diff a.bin b.bin --map car.adr --format csv", 1,
       "entry,count,up,down,addresses,caption\nHIGH_FUEL,1,+3,,0011-0011,Fuel\n"
       "outside,1,,,0002-0002,\n",
       ""},
      {"diff a.bin nothing.bin", 2, "", "zelkova-batch: nothing.bin: File not found\n"},
      {"check car.adr a.bin", 0, "", ""},
      {"show a.bin --map car.adr VQ_MAP", 2, "",
       "zelkova-batch: VQ_MAP: the address map doesn't have it\n"},
      {"show a.bin --map car.adr FUEL", 2, "",
       "zelkova-batch: FUEL: no map is called so; maps are named by their keywords, such as "
       "HIGH_FUEL\n"},
      {"convert a.bin b.bin", 2, "",
       "zelkova-batch: b.bin is there already: name another file, or replace it with --force\n"},
      {"convert a.bin a.xyz", 2, "",
       "zelkova-batch: a.xyz: no form is known by this name; say --to raw, hex or srec\n"},
      {"split a.bin o.bin e.bin --kbit 64", 2, "",
       "zelkova-batch: a.bin: the image has only 32 bytes\n"},
      {"convert --into . --to raw a.bin ./a.bin", 2, "",
       "zelkova-batch: ./a.bin: two files would become this one\n"},
  };
  for (const auto& [arguments, code, out, error] : table) {
    const Outcome outcome = run(arguments);
    EXPECT_EQ(outcome.code, code) << arguments;
    EXPECT_EQ(outcome.out, out) << arguments;
    EXPECT_EQ(outcome.error, error) << arguments;
  }
  EXPECT_EQ(readFile(folder / "b.bin")[2], 0);
  EXPECT_EQ(run("nonsense").code, 2);
}

TEST_F(Batch, ShowsMapsBesideTheirScales) {
  const Bytes image = patternImage(32);
  const auto number = [&](std::size_t at) { return std::to_string(image[at]); };
  const Outcome csv = run("show a.bin --map car.adr HIGH_FUEL REV1_LIMIT --format csv");
  std::string expected = "HIGH_FUEL  Fuel\n";
  for (std::size_t i = 24; i < 28; ++i) expected += "," + number(i);
  expected += "\n0010";
  for (std::size_t i = 16; i < 20; ++i) expected += "," + number(i);
  expected += "\n0014";
  for (std::size_t i = 20; i < 24; ++i) expected += "," + number(i);
  expected += "\n\nREV1_LIMIT," + std::to_string(50 * image[28]) + ",Rev\n";
  EXPECT_EQ(csv.out, expected);
}

TEST_F(Batch, EveryFormComesBackTheSame) {
  const Bytes image = patternImage(32);
  for (const char* steps : {"convert a.bin x.srec && BATCH convert x.srec x.hex && BATCH convert - "
                            "y.bin --to raw <x.hex",
                            "split a.bin o.hex e.hex && BATCH join o.hex e.hex y.bin"}) {
    std::string commands = steps;
    for (auto at = commands.find("BATCH"); at != std::string::npos; at = commands.find("BATCH")) {
      commands.replace(at, 5, BATCH);
    }
    EXPECT_EQ(run(commands).code, 0) << commands;
    EXPECT_EQ(readFile(folder / "y.bin"), image) << commands;
    std::filesystem::remove(folder / "y.bin");
  }
  EXPECT_EQ(run("take a.bin b.bin --map car.adr HIGH_FUEL -o z.bin").code, 0);
  Bytes taken = image;
  taken[2] = 0;  // outside the address map
  EXPECT_EQ(readFile(folder / "z.bin"), taken);
}

}  // namespace
