// UTF-8 text as characters and back. Bytes that are no UTF-8 become U+FFFD.
#pragma once

#include <string>
#include <string_view>

std::u32string utf32(std::string_view text);
std::string utf8(std::u32string_view characters);
