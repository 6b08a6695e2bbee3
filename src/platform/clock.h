// The time of day.
#pragma once

#include <cstdint>
#include <string>

std::int64_t microsecondsNow();  // since 1970

// A moment in seconds since 1970, in the zone of this machine, in the form that std::strftime
// tells.
std::string localTime(const char* form, std::int64_t seconds);
// Now, in the zone of this machine, in the form that std::strftime tells.
std::string localTime(const char* form);
