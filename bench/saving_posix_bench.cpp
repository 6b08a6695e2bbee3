// Saving 64 KiB by the menu and as one file, beside the system's bare calls in the same folder.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <string>

#include "full_car.h"
#include "platform/files.h"

namespace {

void saveByTheMenu(benchmark::State& state) {
  fullCar();
  MenuItem& command = *form1().menuBar.find("update_bin_file");
  for (auto _ : state) command.userPick();
}

void saveOneFile(benchmark::State& state) {
  fullCar();
  for (auto _ : state) replaceFile(editorState.imagePath, editorState.image);
}

void writeFlushAndRename(const std::string& folder) {
  const std::string target = folder + "/bare.bin";
  const std::string beside = target + ".new";
  std::FILE* const file = std::fopen(beside.c_str(), "wb");
  std::fwrite(editorState.image.data(), 1, editorState.image.size(), file);
  std::fflush(file);
  fsync(fileno(file));
  std::fclose(file);
  std::rename(beside.c_str(), target.c_str());
}

void bareCalls(benchmark::State& state) {
  fullCar();
  for (auto _ : state) writeFlushAndRename(editorState.appPath);
}

// So that the rename, too, outlives a loss of power.
void bareCallsAndFolder(benchmark::State& state) {
  fullCar();
  for (auto _ : state) {
    writeFlushAndRename(editorState.appPath);
    const int folder = open(editorState.appPath.c_str(), O_RDONLY | O_DIRECTORY);
    fsync(folder);
    close(folder);
  }
}

BENCHMARK(saveByTheMenu)->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK(saveOneFile)->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK(bareCalls)->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK(bareCallsAndFolder)->Unit(benchmark::kMicrosecond)->UseRealTime();

}  // namespace
