// The tireless user's program is killed at any system call. What stood in a file when a gesture
// began, and the unsaved image if it was just kept, stands in a file or among the earlier states.
// ZELKOVA_SECONDS makes it longer.
#include <sys/mman.h>

#include <chrono>
#include <csignal>
#include <iostream>
#include <map>

#include "core/earlier_states.h"
#include "core/history.h"
#include "core/pending_image.h"
#include "core/unsaved_states.h"
#include "failing_calls_posix.h"
#include "imagefiles/earlier_states_window.h"
#include "imagefiles/image_forms.h"
#include "platform/failure.h"
#include "platform/replacement_record.h"
#include "rom/image_writing.h"
#include "tireless_user.h"

namespace {

constexpr int gesturesOfALife = 150;
constexpr std::size_t mostFiles = 4096;
constexpr std::size_t largestImage = 1 << 14;

// What the program tells of itself before it is killed.
struct Told {
  std::size_t files;
  std::uint64_t hashes[mostFiles];
  std::size_t unsavedBytes;
  std::uint8_t unsaved[largestImage];
};

std::uint64_t hashOfBytes(const Bytes& bytes) { return markOf(bytes).hash; }

class KilledUser : public TirelessUser {
 protected:
  KilledUser() { desk.userData = path("data"); }

  template <class Look>
  void forEachFile(Look look) {
    for (Text name : imageNames) look(name, readBytes(name));
    for (Text name : mapNames) look(name, readBytes(name));
  }
  // Forgetting is the one way to lose something.
  void live() {
    std::map<std::string, std::uint64_t> known;
    for (int i = 0; i < gesturesOfALife && !desk.ended; ++i) {
      if (earlierStatesWindow.loaded()) earlierStatesWindow.userClose();
      forEachFile([&](const std::string& name, const Bytes& file) {
        const std::uint64_t hash = hashOfBytes(file);
        if (std::exchange(known[name], hash) != hash) told.hashes[told.files++] = hash;
      });
      desk.boxes.clear();
      desk.prompts.clear();
      const Bytes saved = editorState.savedImage;
      step();
      const bool other = editorState.savedImage != saved && !canUndo() && !canRedo();
      if (told.unsavedBytes > 0) forgetUnsaved(desk.ended || other);
      if (chance(20)) keepUnsaved();
    }
  }
  // The image that was kept stays for ever when it was given up, and counts no more once edited.
  void forgetUnsaved(bool givenUp) {
    const Bytes unsaved(told.unsaved, told.unsaved + told.unsavedBytes);
    const bool isSaved = editorState.savedImage == unsaved;
    if (givenUp && !isSaved) told.hashes[told.files++] = hashOfBytes(unsaved);
    if (givenUp || isSaved || pendingImage.bytes() != unsaved) told.unsavedBytes = 0;
  }
  void keepUnsaved() {
    told.unsavedBytes = 0;
    keepUnfinishedImage();
    finishUnfinishedImage();
    const Bytes& image = pendingImage.bytes();
    if (desk.ended || editorState.imageSize == 0 || image.size() > largestImage) return;
    if (image == editorState.savedImage) return;
    std::ranges::copy(image, told.unsaved);
    told.unsavedBytes = image.size();
  }
  void playLife() {
    std::filesystem::remove_all(desk.userData);
    begin();
    told.files = told.unsavedBytes = 0;
    const int calls = number(0, 1000);
    const auto dies = [] { return raise(SIGKILL); };
    const int code = failing_calls::inChild([&] {
      failing_calls::struck(calls, dies, [this] { live(); });
      return HasFailure() ? 1 : 0;
    });
    ASSERT_NE(code, 1);
    kills += code != 0;
    end();
    watchUnsavedImage({});
    for (Text name : imageNames) readImageFile(path(name));  // which mends a mixed pair
    expectAllKept();
  }
  void expectAllKept() {
    const Bytes unsaved(told.unsaved, told.unsaved + told.unsavedBytes);
    bool unsavedStands = unsaved.empty();
    std::set<std::uint64_t> kept;
    forEachFile([&](const std::string&, const Bytes& file) {
      kept.insert(hashOfBytes(file));
      const auto size = static_cast<std::int32_t>(unsaved.size());
      unsavedStands = unsavedStands || holdsImage(file, unsaved, size) ||
                      fileOf(unsaved, {ImageFileForm::sRecords}) == file;
    });
    for (const EarlierState& state : earlierStates()) {
      EXPECT_EQ(trapFailure([&] { kept.insert(hashOfBytes(bytesOf(state))); }), 0);
    }
    for (std::size_t i = 0; i < told.files; ++i) {
      EXPECT_TRUE(kept.contains(told.hashes[i])) << "life " << lives << ", content " << i;
    }
    EXPECT_TRUE(unsavedStands || kept.contains(hashOfBytes(unsaved))) << "life " << lives;
  }

  // One memory for the program and for who kills it.
  Told& told = *static_cast<Told*>(
      mmap(nullptr, sizeof(Told), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0));
  int lives = 0;
  int kills = 0;
};

TEST_F(KilledUser, LosesNothing) {
  using Clock = std::chrono::steady_clock;
  const auto end = Clock::now() + std::chrono::seconds(fromEnvironment("ZELKOVA_SECONDS", 2));
  for (; Clock::now() < end && !HasFailure(); ++lives) ASSERT_NO_FATAL_FAILURE(playLife());
  EXPECT_GT(kills, lives / 4);
  std::cout << "killed " << kills << " times in " << lives << " walks\n";
}

}  // namespace
