// The image as a write-back would leave it, kept up to date gesture by gesture without one: what a
// save would write. The image itself changes at the write-back.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "core/editor_state.h"
#include "core/map_kinds.h"
#include "core/stored_bytes.h"

class PendingImage {
 public:
  const RomImage& bytes() const { return bytes_; }
  // How many bytes differ from the file's, as far as both go, and by how many the lengths differ.
  std::int64_t unsavedBytes() const { return unsaved_; }

  // All of it anew.
  void rebuild();
  // True as long as what was drawn stands as it did at the last `rebuild`.
  bool isInForce() const;

  // Stores one cell. False where more than its own bytes may follow from it: a map of which an
  // earlier cell can't be stored, or which shares bytes with other entries.
  bool storeCell(const MapKind& kind, std::int64_t index, std::int64_t address,
                 const std::optional<StoredBytes>& stored);
  // Stores all that shares bytes with the map, or with the parameters; gives the maps among it.
  std::vector<const MapKind*> storeAllAround(const MapKind& kind);
  std::vector<const MapKind*> storeParams();
  // The index of the map's first cell whose text the image can't take.
  std::optional<std::int64_t> firstRefused(const MapKind& kind) const;
  // True where all cells of a map stand here as their texts tell.
  bool holdsEachCellOf(const MapKind& kind, const StoredCells& cells) const;

 private:
  void formGroups();
  void joinGroups(std::size_t one, std::size_t other);
  void storeGroup(std::size_t group);
  std::vector<const MapKind*> mapsOf(std::size_t group) const;
  void storeMap(const MapKind& kind);
  void storeAllParams();
  void put(std::int64_t address, std::uint8_t byte);

  RomImage bytes_;
  std::int64_t unsaved_ = 0;
  std::array<std::int32_t, mapCount + 1> drawn_{};
  std::array<bool, paramCount> shown_{};
  // Of each map its first cell that a write-back doesn't store; by MapId.
  std::array<std::int64_t, mapCount + 1> stopsAt_{};
  std::array<std::int64_t, mapCount + 1> refusesAt_{};  // -1: at none
  // Entries with bytes in common have one number: maps in MapId order, then the parameters, which
  // are all one group, since one that can't be stored stops those behind it.
  std::array<std::size_t, mapCount + paramCount> groups_{};
  std::array<bool, mapCount + paramCount> alone_{};
};

extern PendingImage pendingImage;
