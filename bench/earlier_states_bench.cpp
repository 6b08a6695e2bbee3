// What the store of earlier states adds: to saving 64 KiB, to the user's thread each half minute,
// and to a start. Some file systems are slow with new files for five seconds after others were
// removed, which a user who saves now and then never meets: ZELKOVA_REST tells how many seconds
// each save waits for the one before.
#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <string>
#include <thread>

#include "core/earlier_states.h"
#include "core/unsaved_states.h"
#include "full_car.h"

namespace {

enum Store { none, empty, full };  // full: as many states as are kept

// The program with its store anew.
HeadlessDesktop& startWith(std::int64_t kind) {
  HeadlessDesktop& desk = fullCar();
  finishEarlierStates();
  desk.userData = editorState.appPath + "/data";
  std::filesystem::remove_all(desk.userData);
  for (std::size_t i = 0; kind == full && i < mostStates; ++i) {
    const std::string bytes = std::to_string(i) + std::string(fullCarImageBytes - 3, '.');
    const std::span span(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
    keepState(newState({editorState.imagePath}, span), span);
  }
  if (kind == none) desk.userData.clear();
  return desk;
}

void rest() {
  const char* const seconds = std::getenv("ZELKOVA_REST");
  std::this_thread::sleep_for(std::chrono::seconds(seconds ? std::atoi(seconds) : 0));
}

// One byte changes before each save, so that each replaces something.
void saveByTheMenu(benchmark::State& state) {
  const HeadlessDesktop& desk = startWith(state.range(0));
  MenuItem& command = *form1().menuBar.find("update_bin_file");
  rest();
  for (auto _ : state) {
    ++editorState.image.back();
    command.userPick();
    state.PauseTiming();
    finishEarlierStates();
    if (state.range(0) == empty) std::filesystem::remove_all(desk.userData);
    rest();
    state.ResumeTiming();
  }
}

// What the user waits for; the file is written meanwhile.
void keepUnfinished(benchmark::State& state) {
  startWith(empty);
  editorState.image.resize(static_cast<std::size_t>(state.range(0)));
  editorState.imageSize = static_cast<std::int32_t>(state.range(0));
  for (auto _ : state) {
    ++editorState.image.back();
    keepUnfinishedImage();
    state.PauseTiming();
    finishUnfinishedImage();
    state.ResumeTiming();
  }
  dropUnfinishedImage();
  editorState.image.resize(fullCarImageBytes);
  editorState.imageSize = fullCarImageBytes;
}

void start(benchmark::State& state) {
  startWith(state.range(0));
  for (auto _ : state) watchUnsavedImage({});
}

BENCHMARK(saveByTheMenu)->DenseRange(none, full)->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK(keepUnfinished)
    ->Arg(fullCarImageBytes)
    ->Arg(1 << 20)
    ->Unit(benchmark::kMicrosecond)
    ->UseRealTime()
    ->Iterations(200);
BENCHMARK(start)->DenseRange(none, full)->Unit(benchmark::kMicrosecond)->UseRealTime();

}  // namespace
