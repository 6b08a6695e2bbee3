#include "core/image_bytes.h"

#include "core/editor_state.h"
#include "platform/failure.h"

namespace {

std::uint8_t& byteAt(std::int64_t offset) {
  RomImage& image = editorState.image;
  if (offset < 0 || offset >= static_cast<std::int64_t>(image.size())) throw Failure(badSubscript);
  return image[static_cast<std::size_t>(offset)];
}

}  // namespace

int imageByte(std::int64_t offset) { return byteAt(offset); }

void setImageByte(std::int64_t offset, std::uint8_t byte) { byteAt(offset) = byte; }
