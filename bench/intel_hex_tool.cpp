// Reader and writer as a process of its own, for a race against other tools:
// intel_hex_tool decode IN.hex OUT.bin, intel_hex_tool encode IN.bin OUT.hex.
#include <sys/resource.h>

#include <cstdio>
#include <fstream>
#include <iostream>
#include <string>
#include <string_view>

#include "core/loaded_image.h"
#include "platform/failure.h"
#include "platform/files.h"
#include "rom/intel_hex_reader.h"
#include "rom/intel_hex_writer.h"

namespace {

constexpr std::int64_t noLimit = 1 << 30;

void writeFile(const char* path, const char* bytes, std::size_t size) {
  std::ofstream(path, std::ios::binary).write(bytes, static_cast<std::streamsize>(size));
}

void decode(const char* from, const char* to) {
  takeImage(readIntelHexOrNothing(readFile(from), noLimit, noLimit));
  writeFile(to, reinterpret_cast<const char*>(editorState.image.data()), editorState.image.size());
}

void encode(const char* from, const char* to) {
  const std::string text = intelHexText(readFile(from));
  writeFile(to, text.data(), text.size());
}

long peakKilobytes() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return usage.ru_maxrss;
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 4) return 2;
  const bool decodes = std::string_view(arguments[1]) == "decode";
  const long before = peakKilobytes();
  const int number = trapFailure(
      [&] { decodes ? decode(arguments[2], arguments[3]) : encode(arguments[2], arguments[3]); });
  if (number != 0) std::cerr << failureText(number) << '\n';
  std::cout << peakKilobytes() - before << " KiB above the start\n";
  return number == 0 ? 0 : 1;
}
