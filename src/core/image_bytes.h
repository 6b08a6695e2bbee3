// Access to single bytes of the image; an offset outside fails with badSubscript.
#pragma once

#include <cstdint>

int imageByte(std::int64_t offset);
void setImageByte(std::int64_t offset, std::uint8_t byte);
