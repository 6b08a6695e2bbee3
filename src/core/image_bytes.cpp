#include "core/image_bytes.h"

void setImageBytes(std::int64_t offset, std::span<const std::uint8_t> bytes) {
  for (const std::uint8_t byte : bytes) {
    if (imageBytesFrom(offset) > 0) setImageByte(offset, byte);
    ++offset;
  }
}
