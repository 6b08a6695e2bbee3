// Which character the user has assigned to raising and to lowering a value.
#pragma once

#include <string_view>

// So many steps does one of them together with Ctrl.
constexpr int coarseSteps = 10;

// True if `key` is the first character of `assignment`. An empty assignment matches no key.
bool isAssignedKey(std::string_view assignment, char32_t key);
