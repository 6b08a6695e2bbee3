// What a mark is called when it is read out.
#pragma once

#include <functional>
#include <string>

#include "controls/control.h"

// The program sets it, in its language; "" for no mark.
extern std::function<std::string(Mark)> markMeaning;
