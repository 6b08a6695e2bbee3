// What differs: the image as a save would write it, beside the file's or the comparison image.
// Cells and boxes that differ bear a mark, as do those whose text the image can't take; marks
// follow each gesture at once. Images of different length are compared as far as both go.
#pragma once

#include <cstdint>
#include <string>

#include "core/editor_state.h"
#include "core/map_kinds.h"

struct Step;

enum class Against { nothing, file, comparison, state };

Against comparedWith();
void compareWith(Against which);
// The same with bytes of their own, which are called `name`.
void compareWithState(RomImage bytes, std::string name);
const std::string& comparedStateName();
// The bytes that are compared with; null where there are none.
const RomImage* referenceImage();

// Other data stands here now, or another reference: all marks follow at the end of the gesture.
void differencesOutdated();
// What a gesture changed, also when it is taken back.
void followStep(const Step& step);

// Grows whenever differences may have come or gone.
std::uint64_t changesOfDifferences();

// As at the program's start: compared with the file, nothing marked.
void resetDifferences();

// Cells of a map, by their marks.
struct MarkedCells {
  std::int32_t differing = 0;
  std::int32_t unstorable = 0;
  bool operator==(const MarkedCells&) const = default;
};
MarkedCells markedCells(const MapKind& kind);
