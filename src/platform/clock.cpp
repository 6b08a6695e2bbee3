#include "platform/clock.h"

#include <array>
#include <ctime>

std::string localTime(const char* form) {
  const std::time_t now = std::time(nullptr);
  std::array<char, 64> text{};
  const std::size_t length = std::strftime(text.data(), text.size(), form, std::localtime(&now));
  return {text.data(), length};
}
