#include "core/key_assignment.h"

#include "platform/utf8.h"

bool isAssignedKey(std::string_view assignment, char32_t key) {
  const std::u32string characters = utf32(assignment);
  return !characters.empty() && characters.front() == key;
}
