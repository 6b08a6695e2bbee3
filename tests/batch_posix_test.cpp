// The command line as a process: exit codes, results and messages of each command over small files.
#include <sys/wait.h>
#include <cstdlib>

#include <random>

#include "editing/add_multiply.h"
#include "editing/cell_change_dialogs.h"
#include "editing/map_copy.h"
#include "editing/map_shift.h"
#include "editing/smoothing.h"
#include "scratch_folder.h"
#include "support.h"

namespace {

const ScratchFolder files;

struct Outcome {
  int code;
  std::string out;
  std::string error;
};

std::string textOf(const char* name) {
  const Bytes bytes = readFile(files / name);
  return {bytes.begin(), bytes.end()};
}

Outcome run(const std::string& arguments) {
  const std::string command =
      "cd " + (files / "") + " && { " + BATCH + " " + arguments + "; } >out 2>err";
  const int status = std::system(command.c_str());
  return {WEXITSTATUS(status), textOf("out"), textOf("err")};
}

class Batch : public testing::Test {
 protected:
  Batch() {
    replaceFile(files / "car.adr",
                bytesOf("TYPE_UNIT\nCAR\nHIGH_FUEL,16,4,2,8,2,Fuel\nTP_SCALE_FUEL,24,4,1,4,2,Load\n"
                        "REV1_LIMIT,28,1,1,1,50,Rev\n"));
    replaceFile(files / "a.bin", patternImage(32));
    Bytes other = patternImage(32);
    other[17] = static_cast<std::uint8_t>(other[17] + 3);
    other[2] = 0;
    replaceFile(files / "b.bin", other);
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
      {"convert a.bin . --to raw", 2, "",
       "zelkova-batch: . is there already: name another file, or replace it with --force\n"},
      {"convert a.bin a.xyz", 2, "",
       "zelkova-batch: a.xyz: no form is known by this name; say --to raw, hex or srec\n"},
      {"split a.bin o.bin e.bin --kbit 64", 2, "",
       "zelkova-batch: a.bin: the image has only 32 bytes\n"},
      {"convert --into . --to raw a.bin ./a.bin", 2, "",
       "zelkova-batch: ./a.bin: two files would become this one\n"},
      {"convert --into nowhere --to raw a.bin b.bin", 2, "",
       "zelkova-batch: nowhere: no such folder; make it first\n"},
      {"split a.bin o.bin ./o.bin --force", 2, "",
       "zelkova-batch: ./o.bin: both halves would become this one\n"},
      {"apply a.bin --map car.adr --script - -o o.bin --to paper </dev/null", 2, "",
       "zelkova-batch: paper: the forms are raw, hex and srec\n"},
      {"convert a.bin o.hex --base 0xFFFFFFE1", 2, "",
       "zelkova-batch: a.bin: would end beyond address FFFFFFFF: say a smaller --base\n"},
      {"info - <.", 2, "", "zelkova-batch: standard input can't be read to its end\n"},
      {"info $(yes a.bin | head -99) >/dev/full", 2, "",
       "zelkova-batch: standard output can't be written\n"},
  };
  for (const auto& [arguments, code, out, error] : table) {
    const Outcome outcome = run(arguments);
    EXPECT_EQ(outcome.code, code) << arguments;
    EXPECT_EQ(outcome.out, out) << arguments;
    EXPECT_EQ(outcome.error, error) << arguments;
  }
  EXPECT_EQ(readFile(files / "b.bin")[2], 0);
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

TEST_F(Batch, TellsWhatItWroteAsJsonAndReportsInBothLanguages) {
  const std::string entry = R"({
  "file": "c.hex",
  "form": "hex",
  "size": 32,
  "from": [
    "a.bin"
  ]
})";
  EXPECT_EQ(run("convert a.bin c.hex --json").out, "[" + entry + "]\n");
  const Outcome several = run("info nothing.bin a.bin other.bin --json");
  EXPECT_EQ(several.code, 2);
  EXPECT_TRUE(several.out.starts_with("[{") && several.out.ends_with("}]\n")) << several.out;
  EXPECT_EQ(run("info nothing.bin --json").out, "[]\n");
  EXPECT_EQ(run("convert a.bin - --to raw --json").error,
            "zelkova-batch: --json tells on standard output: name a file for the result\n");
  for (const auto& [language, caption] : {std::pair("en", "Single values"), {"ja", "単独の値"}}) {
    const std::string name = std::string(language) + ".html";
    const Outcome outcome = run("report a.bin --map car.adr -o " + name + " --lang " + language);
    EXPECT_EQ(outcome.code, 0) << outcome.error;
    const std::string page = textOf(name.c_str());
    EXPECT_NE(page.find(caption), std::string::npos) << page;
    EXPECT_EQ(page.find(" cc"), std::string::npos) << "no engine is known";
  }
}

TEST_F(Batch, EveryFormComesBackTheSame) {
  const Bytes image = patternImage(32);
  for (const char* steps : {"convert a.bin x.srec && BATCH convert x.srec x.hex && BATCH convert - "
                            "y.bin --to raw <x.hex",
                            "split a.bin o.hex e.srec && BATCH join o.hex e.srec y.bin",
                            "convert a.bin high.hex --base 0x1F000 && BATCH take high.hex high.hex "
                            "--map car.adr -o high2.hex && BATCH convert high2.hex y.bin --base "
                            "0x1F000"}) {
    std::string commands = steps;
    for (auto at = commands.find("BATCH"); at != std::string::npos; at = commands.find("BATCH")) {
      commands.replace(at, 5, BATCH);
    }
    EXPECT_EQ(run(commands).code, 0) << commands;
    EXPECT_EQ(readFile(files / "y.bin"), image) << commands;
    std::filesystem::remove(files / "y.bin");
  }
  EXPECT_EQ(run("take a.bin b.bin --map car.adr HIGH_FUEL -o z.bin").code, 0);
  Bytes taken = image;
  taken[2] = 0;  // outside the address map
  EXPECT_EQ(readFile(files / "z.bin"), taken);
}

// Random gestures in the windows, and the same as lines of a script.
class Script : public ProgramTest {
 protected:
  bool chance() { return random() % 2 == 0; }
  int upTo(int most) { return static_cast<int>(random() % static_cast<unsigned>(most)) + 1; }

  // Selects some cells of a map; gives them as a script names them.
  std::string select(const MapKind& kind) {
    selectTab(kind.tab);
    Grid& grid = gridOf(kind);
    const int top = upTo(grid.rows() - 1), left = upTo(grid.columns() - 1);
    const int bottom = top - 1 + upTo(grid.rows() - top);
    const int right = left - 1 + upTo(grid.columns() - left);
    grid.userFocus();
    drag(grid, top, left, bottom, right);
    return std::string(kind.keyword) + " " + std::to_string(top) + "-" + std::to_string(bottom) +
           "," + std::to_string(left) + "-" + std::to_string(right);
  }

  std::string changeBelow(const char* command, BulkChangeDialog& dialog, const std::string& by) {
    const std::string threshold = std::to_string(upTo(300));
    pick(command);
    typeOver(dialog.Text1, threshold);
    typeOver(dialog.Text2, by);
    dialog.userEnter();
    return by + " below " + threshold;
  }

  std::string gesture() {
    const std::array kinds{HIGH_FUEL, REG_FUEL, ADD_MAP1, VQ_MAP};
    const MapKind& kind = *findMapKind(kinds[random() % kinds.size()]);
    const std::string cells = select(kind);
    switch (random() % 9) {
      case 5: {
        pick("DT_SFT");
        const bool left = chance(), along = kind.id == HIGH_FUEL && chance();
        (left ? form11.Option1 : form11.Option2).userSelect();
        if (form11.Check1.checked() != along) form11.Check1.userToggle();
        form11.userEnter();
        if (kind.id == VQ_MAP) return "# words can't be shifted";
        return std::string("shift ") + kind.keyword + (left ? " left" : " right") +
               (along ? " scale" : "");
      }
      case 6: {
        pick("F_F");
        const bool forward = chance();
        (forward ? form3.Option1 : form3.Option2).userSelect();
        form3.userEnter();
        return forward ? "copy HIGH_FUEL REG_FUEL" : "copy REG_FUEL HIGH_FUEL";
      }
      case 7: {
        const std::string rpm = std::to_string(upTo(60000));
        typeOver(form1().Text4, rpm);
        return "parameter REV1_LIMIT " + rpm;
      }
      case 0:
        return "add " + cells + " " + changeBelow("add_dec", form7, std::to_string(upTo(60) - 30));
      case 1:
        return "multiply " + cells + " " +
               changeBelow("kakeru", form8, "1." + std::to_string(upTo(99)));
      case 2: {
        const std::string number = std::to_string(upTo(300));
        pick("set");
        typeOver(setDialog.value, number);
        setDialog.userEnter();
        return "set " + cells + " " + number;
      }
      case 3: {
        const std::string by = std::to_string(upTo(60) - 30) + ".5";
        pick("percent");
        typeOver(percentDialog.percent, by);
        percentDialog.userEnter();
        return "percent " + cells + " " + by;
      }
      case 4:
        if (!hasCellsBetween(gridOf(kind).block(), Fill::across)) return "# nothing between";
        pick("across");
        interpolateDialog.userEnter();
        return "interpolate " + cells + " across";
      default: {
        if (kind.id == VQ_MAP) return "# words can't be smoothed";
        const std::string threshold = std::to_string(upTo(300));
        pick("smooth");
        typeOver(form10.Text1, threshold);
        form10.userEnter();
        return "smooth " + cells + " below " + threshold;
      }
    }
  }

  std::mt19937 random{20};
};

TEST_F(Script, GivesWhatTheSameGesturesGive) {
  const char* const wanted = std::getenv("ZELKOVA_SCRIPTS");
  const int scripts = wanted ? std::atoi(wanted) : 60;
  replaceFile(files / "small.adr", bytesOf(smallMap()));
  for (int i = 0; i < scripts; ++i) {
    const Bytes image = patternImage(0x400, static_cast<std::uint32_t>(i));
    loadSmallCar();
    loadImage(image);
    std::string script;
    for (int line = upTo(8); line > 0; --line) script += gesture() + "\n";
    replaceFile(files / "script", bytesOf(script));
    replaceFile(files / "image", image);
    const Outcome outcome =
        run("apply image --map small.adr --script script -o edited.bin --to raw --force");
    ASSERT_EQ(outcome.code, 0) << outcome.error << script;
    ASSERT_EQ(readFile(files / "edited.bin"), saveImage(std::to_string(i) + ".bin")) << script;
    end();
  }
}

TEST_F(Batch, AScriptIsDoneWholeOrNotAtAll) {
  const std::pair<const char*, const char*> table[] = {
      {"paint HIGH_FUEL * 1",
       "unknown command \"paint\"; there are set, add, multiply, percent, interpolate, smooth, "
       "shift, copy and parameter"},
      {"copy HIGH_FUEL TP_SCALE_FUEL", "TP_SCALE_FUEL is not the counterpart of HIGH_FUEL"},
      {"shift TP_SCALE_FUEL left", "TP_SCALE_FUEL can't be shifted"},
      {"shift HIGH_FUEL up",
       "shift takes a map, left or right, and \"scale\" to take the load scale along"},
      {"set HIGH_FUEL 3,1 1", "\"3\" is no range of 1 to 2"},
      {"set HIGH_FUEL 1-2 1", "\"1-2\" is no ROWS,COLUMNS"},
      {"set VQ_MAP * 1", "the address map doesn't have VQ_MAP"},
      {"set HIGH_FUEL *", "a number is missing"},
      {"set HIGH_FUEL * 1 2", "what is \"2\" for?"},
      {"add TP_SCALE_FUEL * 1", "TP_SCALE_FUEL takes no such command"},
      {"interpolate HIGH_FUEL *", "interpolate goes across, down or both"},
      {"parameter REV1_LIMIT 12800", "REV1_LIMIT has no room for 12800"},
      {"parameter K_DATA 00", "the address map and the image don't have K_DATA"},
  };
  for (const auto& [line, what] : table) {
    replaceFile(files / "script", bytesOf("set HIGH_FUEL * 9\n\n" + std::string(line)));
    const Outcome outcome = run("apply a.bin --map car.adr --script script -o never.bin");
    EXPECT_EQ(outcome.code, 2) << line;
    EXPECT_EQ(outcome.error, "zelkova-batch: script:3: " + std::string(what) + "\n");
    EXPECT_FALSE(fileExists(files / "never.bin")) << line;
  }
  replaceFile(files / "script", bytesOf("set HIGH_FUEL 2,4 9 # the last cell\nparameter REV1_LIMIT "
                                        "1049\n"));
  EXPECT_EQ(run("apply a.bin --map car.adr --script script -o c.srec").code, 0);
  EXPECT_EQ(run("convert c.srec c.bin").code, 0);
  Bytes expected = patternImage(32);
  expected[23] = 9;
  expected[28] = 20;
  EXPECT_EQ(readFile(files / "c.bin"), expected);
}

}  // namespace
