// The single parameters: from the image into their text boxes. Their way back is ANY_SET_MEMORY.
#pragma once

#include <optional>
#include <string>

#include "core/editor_state.h"
#include "core/map_kinds.h"

// Shows all present parameters. A parameter outside the image fails with badSubscript.
void showGlobalParams();

// What a parameter's box shows of an image; nothing for an absent one and for one that no box can
// stand for. A parameter outside the image fails with badSubscript.
std::optional<std::string> paramText(const ParamKind& kind, const RomImage& image);

// True if the box of a scaled parameter of this length can stand for its bytes: up to 32 bits.
constexpr int maximumScaledBytes = 4;

// The key filters of the scaled parameters' boxes.
void wireGlobalParams();
