// The progress bar of the main window.
#pragma once

#include <cstdint>

// The bar at the whole part of count / 1170 * 100, plus 1, at most 100; -1 resets it to 0.
void setProgress(int count);
// The same for `done` of `total`.
void setProgressOf(std::int64_t done, std::int64_t total);
// One cell more of the operation under way.
void countProgress();
