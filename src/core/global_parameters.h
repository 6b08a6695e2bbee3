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

// The key filters of the scaled parameters' boxes.
void wireGlobalParams();
