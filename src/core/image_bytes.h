// The one door to the bytes of the image: all that changes single bytes or stretches of them comes
// through here. Whole images come in by takeImage.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "core/editor_state.h"
#include "core/step.h"
#include "platform/failure.h"
#include "rom/map_values.h"

// How many bytes lie in the image from `offset` on; none for an offset outside.
inline std::int64_t imageBytesFrom(std::int64_t offset) {
  const auto size = static_cast<std::int64_t>(editorState.image.size());
  return offset < 0 || offset > size ? 0 : size - offset;
}

// A single byte; an offset outside fails with badSubscript.
inline int imageByte(std::int64_t offset) { return byteOf(editorState.image, offset); }
inline void setImageByte(std::int64_t offset, std::uint8_t byte) {
  if (imageBytesFrom(offset) < 1) throw Failure(badSubscript);
  std::uint8_t& place = editorState.image[static_cast<std::size_t>(offset)];
  if (stepNotes.on() && place != byte) stepNotes.byte(offset, place);
  place = byte;
}

// Those of `bytes` that lie in the image when the first stands at `offset`; the others are left
// out.
void setImageBytes(std::int64_t offset, std::span<const std::uint8_t> bytes);
