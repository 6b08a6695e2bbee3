#include "frontend/command_line.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

#include "core/editor_state.h"
#include "platform/failure.h"
#include "platform/files.h"

namespace {

constexpr const char* usage =
    "Usage: zelkova [OPTION] [FILE...]\n"
    "Edits ROM images of engine control units.\n"
    "\n"
    "FILE is an image (.bin, .hex) or an address map (.adr), or one of each in any order.\n"
    "\n"
    "  -h, --help     tells this and ends\n"
    "  -v, --version  tells the version and ends\n"
    "  --             all that follows is a file, whatever it begins with\n";

constexpr int refusedStatus = 2;

// Options of the toolkit, with one dash or two, and whether a value stands behind them.
struct ToolkitOption {
  std::string_view name;
  bool hasValue;
};
constexpr std::array toolkitOptions{
    ToolkitOption{"platform", true},        ToolkitOption{"platformpluginpath", true},
    ToolkitOption{"platformtheme", true},   ToolkitOption{"plugin", true},
    ToolkitOption{"style", true},           ToolkitOption{"stylesheet", true},
    ToolkitOption{"display", true},         ToolkitOption{"session", true},
    ToolkitOption{"qwindowgeometry", true}, ToolkitOption{"qwindowicon", true},
    ToolkitOption{"qwindowtitle", true},    ToolkitOption{"reverse", false}};

CommandLine refusal(const std::string& argument, const std::string& why) {
  return {{}, "zelkova: " + argument + ": " + why + "\nTry 'zelkova --help'.\n", refusedStatus};
}

CommandLine reply(const std::string& text) { return {{}, text, 0}; }

// How many arguments a toolkit's option takes, itself included; 0 for any other.
std::size_t toolkitLength(std::string_view argument) {
  const std::string_view name =
      argument.substr(std::min(argument.find_first_not_of('-'), argument.size()));
  for (const ToolkitOption& option : toolkitOptions) {
    if (name == option.name) return option.hasValue ? 2 : 1;
    if (option.hasValue && name.starts_with(option.name) && name[option.name.size()] == '=') {
      return 1;
    }
  }
  return 0;
}

// A folder is no missing file: that it can't be opened is told in the window.
std::string whyMissing(const std::string& path) {
  const int failure = trapFailure([&] { fileStamp(path); });
  const bool missing = failure == fileNotFound || failure == pathNotFound;
  return missing ? failureText(failure) : "";
}

}  // namespace

CommandLine readCommandLine(const std::vector<std::string>& arguments) {
  CommandLine asked;
  bool filesOnly = false;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const std::string& argument = arguments[i];
    if (filesOnly || !argument.starts_with('-')) {
      const std::string path = fullPath(argument);
      const std::string missing = whyMissing(path);
      if (!missing.empty()) return refusal(argument, missing);
      asked.files.push_back(path);
    } else if (argument == "--") {
      filesOnly = true;
    } else if (argument == "-h" || argument == "--help") {
      return reply(usage);
    } else if (argument == "-v" || argument == "--version") {
      return reply(std::string("ZELKOVA ") + programVersion + "\n");
    } else if (const std::size_t length = toolkitLength(argument)) {
      i += length - 1;
    } else {
      return refusal(argument, "unknown option");
    }
  }
  return asked;
}
