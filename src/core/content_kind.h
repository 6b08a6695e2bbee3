// What the bytes of an image look like when they are something else: a text, a picture, an archive.
#pragma once

#include <cstdint>
#include <span>

#include "core/wording.h"

// The kind with its article, by the signature that files of it begin with; null for what may well
// be a ROM image. A text is known by its first 4 KiB: no control characters but tabs and line ends,
// of which there is at least one, and all of it characters.
const Wording* contentKindOf(std::span<const std::uint8_t> bytes);
