#include "frontend/batch/batch_command_line.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <cstdio>
#include <exception>
#include <initializer_list>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "frontend/batch/batch_commands.h"
#include "platform/failure.h"
#include "platform/numbers.h"

namespace {

constexpr const char* exitCodes =
    "Exit codes: 0 done, and for diff and check: nothing found; 1 diff and check found something;\n"
    "2 trouble, told on standard error. \"-\" is standard input or output. Nothing that is there "
    "is\n"
    "replaced without --force.";

constexpr const char* scripts =
    "A line of a script is a command, a map, its cells as ROWS,COLUMNS counted from 1 (or * for "
    "all),\n"
    "and what the command takes:\n"
    "  set HIGH_FUEL 1-4,3-6 120          percent HIGH_FUEL 5-8,* -3 [step]\n"
    "  add HIGH_FIRE *,16 -2              multiply REG_FUEL * 0.97\n"
    "  interpolate HIGH_FUEL * both       (across, down or both; [even])\n"
    "  smooth HIGH_FUEL 2-9,2-9           parameter REV1_LIMIT 7200\n"
    "  shift HIGH_FUEL left [scale]       copy HIGH_FUEL REG_FUEL\n"
    "\"below N\" at the end leaves larger numbers alone; \"#\" begins a comment.";

// CLI11 knows no "&H"; "0x" and decimal numbers are taken as well.
std::uint32_t addressOf(const std::string& text) {
  const std::string number = text.starts_with("0x") ? "&H" + text.substr(2) : text;
  std::int32_t value = 0;
  if (trapFailure([&] { value = parseLong(number); }) != 0) {
    throw CLI::ValidationError("--base", text + " is no address");
  }
  return static_cast<std::uint32_t>(value);
}

class CommandLine {
 public:
  CommandLine() {
    app_.require_subcommand(1);
    app_.set_version_flag("--version", "zelkova-batch " ZELKOVA_VERSION);
    app_.footer(exitCodes);
    CLI::App* app = add("info", "size, checksums, form, and whether an address map fits", info);
    images(app, "IMAGE...", 1);
    map(app, false);
    json(app);

    app = add("show", "maps with their scales, and parameters", show);
    files(app, {"IMAGE"});
    map(app, true);
    maps(app);
    formats(app);
    output(app);
    app->add_flag("--hex", arguments_.hex, "bytes in hexadecimal, as they are stored");

    app = add("diff", "what differs between the first image and each of the others", diff);
    images(app, "IMAGE IMAGE...", 2);
    map(app, false);
    formats(app);

    app = add("check", "what is wrong with an address map, line by line", check);
    app->add_option("ADR", arguments_.map, "the address map")->required();
    app->add_option("IMAGE...", arguments_.images, "images that it should fit");
    json(app);

    app = add("convert", "from any form to raw bytes, Intel HEX or S-records", convert);
    images(app, "IN OUT", 1);
    to(app);
    app->add_option("--into", arguments_.folder,
                    "the folder for the results; every name is a file to convert then");
    force(app);
    json(app);

    app = add("split", "an image into the odd and the even half of a pair", split);
    files(app, {"IMAGE", "ODD", "EVEN"});
    to(app);
    pair(app);

    app = add("join", "a pair into an image", join);
    files(app, {"ODD", "EVEN", "OUT"});
    to(app);
    pair(app);

    app = add("apply", "edit an image by a script, all of it or nothing", apply);
    files(app, {"IMAGE"});
    map(app, true);
    app->add_option("--script", arguments_.script, "one command a line")->required();
    to(app);
    output(app)->required();
    json(app);
    app->footer(scripts);

    app = add("take", "carry maps and parameters from one image into another", take);
    files(app, {"FROM", "TO"});
    map(app, true);
    maps(app);
    to(app);
    output(app)->required();
    json(app);

    app = add("report", "a page with all maps and parameters, for any browser", report);
    files(app, {"IMAGE"});
    map(app, true);
    output(app)->required();
    json(app);
    language(app);
  }

  int run(std::vector<std::string> texts) {
    try {
      std::ranges::reverse(texts);  // as the parser wants them
      app_.parse(std::move(texts));
      for (const std::string& file : files_) {
        if (!file.empty()) arguments_.images.push_back(file);
      }
      if (!base_.empty()) arguments_.base = addressOf(base_);
      if (json_) arguments_.format = Format::json;
      if (force_) arguments_.whenThere = WhenThere::replace;
      return run_(arguments_);
    } catch (const CLI::ParseError& error) {
      return app_.exit(error) == 0 ? fine : trouble;
    }
  }

 private:
  static constexpr int mostFiles = 1 << 20;

  CLI::App* add(const char* name, const char* what, int (*command)(const Arguments&)) {
    CLI::App* app = app_.add_subcommand(name, what);
    app->callback([this, command] { run_ = command; });
    return app;
  }

  void images(CLI::App* app, const char* names, int least) {
    app->add_option(names, arguments_.images)->required()->expected(least, mostFiles);
    base(app);
  }
  void files(CLI::App* app, std::initializer_list<const char*> names) {
    std::size_t place = 0;
    for (const char* name : names) app->add_option(name, files_[place++])->required();
    base(app);
  }
  void base(CLI::App* app) {
    app->add_option("--base", base_, "the address of the image's first byte, such as &H8000");
  }
  void map(CLI::App* app, bool required) {
    app->add_option("--map", arguments_.map, "the address map of the model")->required(required);
  }
  void maps(CLI::App* app) {
    app->add_option("MAP...", arguments_.maps, "maps and parameters by keyword; else all");
  }
  void formats(CLI::App* app) {
    const std::map<std::string, Format> names{
        {"table", Format::table}, {"csv", Format::csv}, {"json", Format::json}};
    app->add_option("--format", arguments_.format, "table, csv or json")
        ->transform(CLI::CheckedTransformer(names, CLI::ignore_case));
    json(app);
  }
  void language(CLI::App* app) {
    const std::map<std::string, bool> names{{"en", false}, {"ja", true}};
    app->add_option("--lang", arguments_.japanese, "captions in English (en) or Japanese (ja)")
        ->transform(CLI::CheckedTransformer(names, CLI::ignore_case));
  }
  void json(CLI::App* app) { app->add_flag("--json", json_, "results as JSON"); }
  void to(CLI::App* app) {
    app->add_option("--to", arguments_.form, "raw, hex or srec; else what the name tells");
  }
  CLI::Option* output(CLI::App* app) {
    force(app);
    return app->add_option("-o,--output", arguments_.output, "the file for the result");
  }
  void force(CLI::App* app) { app->add_flag("--force", force_, "replace files that are there"); }
  void pair(CLI::App* app) {
    app->add_option("--kbit", arguments_.kbit, "the size of the whole image; else all of it");
    force(app);
    json(app);
  }

  CLI::App app_{"What tuners do with many images of engine control units at once.",
                "zelkova-batch"};
  Arguments arguments_;
  std::array<std::string, 3> files_;
  std::string base_;
  bool json_ = false;
  bool force_ = false;
  int (*run_)(const Arguments&) = nullptr;
};

}  // namespace

int runCommandLine(std::vector<std::string> arguments) noexcept {
  try {
    return CommandLine().run(std::move(arguments));
  } catch (const std::exception& error) {
    std::fflush(stdout);
    std::fprintf(stderr, "zelkova-batch: %s\n", error.what());
    return trouble;
  }
}
