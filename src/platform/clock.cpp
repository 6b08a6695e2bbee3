#include "platform/clock.h"

#include <array>
#include <chrono>
#include <ctime>

std::int64_t microsecondsNow() {
  const auto since1970 = std::chrono::system_clock::now().time_since_epoch();
  return std::chrono::duration_cast<std::chrono::microseconds>(since1970).count();
}

// A moment that no calendar knows has no text.
std::string localTime(const char* form, std::int64_t seconds) {
  const auto time = static_cast<std::time_t>(seconds);
  const std::tm* const parts = std::localtime(&time);
  if (!parts) return {};
  std::array<char, 64> text{};
  const std::size_t length = std::strftime(text.data(), text.size(), form, parts);
  return {text.data(), length};
}

std::string localTime(const char* form) { return localTime(form, std::time(nullptr)); }
