// The time of day.
#pragma once

#include <string>

// Now, in the zone of this machine, in the form that std::strftime tells.
std::string localTime(const char* form);
