#include <cstdio>

#include "platform/program_call.h"

std::vector<std::string> programArguments(int argc, const char* const* argv) {
  return argc > 1 ? std::vector<std::string>(argv + 1, argv + argc) : std::vector<std::string>{};
}

void tellCaller(Stream stream, const std::string& text) {
  std::fputs(text.c_str(), stream == Stream::error ? stderr : stdout);
}
