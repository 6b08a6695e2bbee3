// Two programs at once: they save over one file and read one store of earlier states, then both are
// killed, round after round for ZELKOVA_SECONDS. What either saved stands in the file or in the
// store, no state is ever seen half done, and a living program's image is not taken for a crash.
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <iostream>

#include "core/earlier_states.h"
#include "core/notices.h"
#include "core/unsaved_states.h"
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
  // Saves, looks and keeps; then tells whether all was in order and waits for its end.
  void work(std::uint8_t program, int teller) {
    bool inOrder = true;
    for (std::uint8_t i = 0; i < saves; ++i) {
      editorState.image = contentOf(program, i);
      if (i % 10 == 3) keepUnfinishedImage();
      pick("update_bin_file");
      if (i % 8 == program) inOrder = inOrder && readsAll();
    }
    editorState.image = contentOf(program, saves);
    keepUnfinishedImage();
    finishUnfinishedImage();
    const char told = inOrder ? 'y' : 'n';
    if (write(teller, &told, 1) == 1) pause();
    _exit(1);
  }
  bool tellsOfACrash() {
    watchUnsavedImage({});
    const Notice* const notice = shownNotice();
    return notice && notice->text.english.find("was not saved") != std::string::npos;
  }
  bool isKept(const Bytes& bytes) const {
    return readBytes("image.bin") == bytes ||
           std::ranges::any_of(earlierStates(),
                               [&](const EarlierState& each) { return bytesOf(each) == bytes; });
  }
  void playRound() {
    std::filesystem::remove_all(desk.userData);
    end();
    startWithMap(smallMap());
    loadImage(contentOf(9, 0));
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    pid_t programs[2];
    for (std::uint8_t program = 0; program < 2; ++program) {
      programs[program] = fork();
      if (programs[program] == 0) work(program, ends[1]);
    }
    std::string told;
    while (told.size() < 2) {
      EXPECT_TRUE(!tellsOfACrash() && readsAll());
      pollfd teller{ends[0], POLLIN, 0};
      char each = 0;
      if (poll(&teller, 1, 5) > 0 && read(ends[0], &each, 1) == 1) told += each;
    }
    EXPECT_EQ(told, "yy");
    EXPECT_FALSE(tellsOfACrash());
    for (const pid_t program : programs) {
      kill(program, SIGKILL);
      waitpid(program, nullptr, 0);
    }
    close(ends[0]), close(ends[1]);
    EXPECT_TRUE(tellsOfACrash());
    EXPECT_TRUE(isKept(contentOf(9, 0)));
    for (std::uint8_t i = 0; i <= saves; ++i) {
      EXPECT_TRUE(isKept(contentOf(0, i)) && isKept(contentOf(1, i))) << int{i};
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
  std::cout << "two programs: " << rounds << " rounds of " << 2 * saves << " saves\n";
}

}  // namespace
