// Two programs at once: they save over one file and read one store of earlier states, and are
// killed at any moment, round after round for ZELKOVA_SECONDS. What either saved or kept stands in
// the file or in the store, no state is ever seen half done, and a living program's image is taken
// for no crash.
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <random>

#include "core/earlier_states.h"
#include "core/unsaved_states.h"
#include "imagefiles/earlier_states_window.h"
#include "support.h"

namespace {

constexpr std::uint8_t saves = 45;  // of each program and round; the store holds them all

class TwoPrograms : public ProgramTest {
 protected:
  TwoPrograms() { desk.userData = path("data"); }

  static Bytes contentOf(std::uint8_t program, std::uint8_t number) {
    Bytes bytes = patternImage(0x400);
    bytes[0] = program;
    bytes[1] = number;
    return bytes;
  }
  static bool readsAll() {
    return std::ranges::all_of(earlierStates(), [](const EarlierState& state) {
      return state.record && trapFailure([&] { bytesOf(state); }) == 0;
    });
  }
  // Saves, looks and keeps, and tells each number that is done; at last it waits for its end.
  void work(std::uint8_t program, int teller) {
    for (std::uint8_t i = 0; i <= saves; ++i) {
      editorState.image = contentOf(program, i);
      if (i % 10 == 3 || i == saves) keepUnfinishedImage();
      if (i < saves) pick("update_bin_file");
      finishUnfinishedImage();
      if (i % 8 == program && !readsAll()) _exit(1);
      const std::uint8_t done[] = {program, i};
      if (write(teller, done, sizeof done) != sizeof done) _exit(1);
    }
    while (true) pause();
  }
  bool tellsOfACrash() {
    watchUnsavedImage({});
    return shown().find("was not saved") != std::string::npos;
  }
  bool isKept(const Bytes& bytes) const {
    return readBytes("image.bin") == bytes ||
           std::ranges::any_of(earlierStates(),
                               [&](const EarlierState& each) { return bytesOf(each) == bytes; });
  }
  void playRound() {
    end();
    std::filesystem::remove_all(desk.userData);
    startWithMap(smallMap());
    loadImage(contentOf(9, 0));
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    pid_t programs[2];
    for (std::uint8_t program = 0; program < 2; ++program) {
      programs[program] = fork();
      if (programs[program] == 0) work(program, ends[1]);
    }
    close(ends[1]);
    // Half of the rounds see both to their last number.
    constexpr std::size_t all = 2 * (saves + 1);
    const std::size_t last = std::min<std::size_t>(std::random_device{}() % (2 * all), all);
    std::vector<std::array<std::uint8_t, 2>> done;
    const auto hear = [&] {
      std::array<std::uint8_t, 2> each{};
      const bool heard = read(ends[0], each.data(), each.size()) == 2;
      if (heard) done.push_back(each);
      return heard;
    };
    pollfd ear{ends[0], POLLIN, 0};
    while (done.size() < last) {
      ASSERT_TRUE(!tellsOfACrash() && readsAll());
      ASSERT_TRUE(poll(&ear, 1, 5) <= 0 || hear());
    }
    for (const pid_t program : programs) {
      kill(program, SIGKILL);
      waitpid(program, nullptr, 0);
    }
    while (hear()) continue;
    close(ends[0]);
    end();
    startWithMap(smallMap());
    const bool unsaved = std::ranges::any_of(done, [](auto& each) { return each[1] == saves; });
    if (unsaved) {
      form1().noticeAction1.userClick();
      EXPECT_TRUE(earlierStatesWindow.loaded());
      EXPECT_EQ(shown(), "");
      earlierStatesWindow.userClose();
    }
    EXPECT_TRUE(isKept(contentOf(9, 0)));
    for (const auto& [program, number] : done) {
      EXPECT_TRUE(isKept(contentOf(program, number))) << int{program} << " " << int{number};
    }
  }
};

TEST_F(TwoPrograms, LoseNothingThatEitherSaved) {
  using Clock = std::chrono::steady_clock;
  const char* const seconds = std::getenv("ZELKOVA_SECONDS");
  const auto end = Clock::now() + std::chrono::seconds(seconds ? std::atoi(seconds) : 1);
  int rounds = 0;
  do {
    ASSERT_NO_FATAL_FAILURE(playRound());
    ++rounds;
  } while (Clock::now() < end && !HasFailure());
  std::cout << "two programs: " << rounds << " rounds of up to " << 2 * saves << " saves\n";
}

}  // namespace
