// The store of earlier states, in the folder of the user's own data: what stood in the user's files
// before a save replaced it, and images that were given up before they were saved. A store that
// can't be written stops nothing; the notice strip says so once. Without a data folder there is no
// store.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "platform/file_store.h"
#include "platform/files.h"
#include "rom/image_reading.h"

// Why a state was kept: a save replaced the file; the image was given up; the program ended
// without being asked to. The first is a file as it stood, the others are images.
enum class StateKind { overwritten, givenUp, unfinished };

// Where an image lies in a file whose name doesn't tell it.
struct StateLayout {
  ImageFileForm form;
  std::uint32_t base;
};

struct StateRecord {
  std::string path;  // of the user's file, from the root on
  StateKind kind = StateKind::overwritten;
  bool oneHalf = false;  // an image whose path names one half of a pair
  std::optional<StateLayout> layout = {};
};

struct EarlierState {
  StoredFile file;
  std::optional<StateRecord> record;  // nothing where it is lost or damaged
};

// Beyond these the oldest go, but never the newest nor the first of a path. They go on another
// thread, while the command goes on.
constexpr std::size_t mostStates = 200;
constexpr std::uint64_t mostStateBytes = std::uint64_t{256} << 20;

bool hasEarlierStates();
// The store; only where there is one.
FileStore stateStore();

// The newest first.
std::vector<EarlierState> earlierStates();
// Throws Failure for a state that is gone or damaged.
std::vector<std::uint8_t> bytesOf(const EarlierState& state);
void forgetState(const EarlierState& state);

// A program that ended just before it replaced a file left that file with a second name, in the
// store: the state becomes a file of its own.
void separateStates() noexcept;

// Replace files of the user as replaceFiles does; what stands there is in the store before.
void replaceUserFile(const std::string& path, std::span<const std::uint8_t> bytes);
void replaceUserFiles(std::span<const FileContent> files);

// The layout of the image that is loaded.
std::optional<StateLayout> layoutOfImage();
// Keeps the bytes, unless they are those of the path's newest state. Throws Failure.
void keepState(const EarlierState& state, std::span<const std::uint8_t> bytes);
// A state of this moment.
EarlierState newState(const StateRecord& record, std::span<const std::uint8_t> bytes);

// The text beside a state: when, why, how many bytes, which checksum, of which path. What is not
// whole or tells of another state is no record.
std::string textOf(const EarlierState& state);
std::optional<StateRecord> recordIn(const std::string& text, const StoredFile& file);

// Waits until they have gone.
void finishEarlierStates();

// Says once, for each start of the program, that states can't be kept.
void tellStatesNotKept(int failure);
// As at the program's start.
void resetEarlierStates();
