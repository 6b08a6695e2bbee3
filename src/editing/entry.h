// What all grids share in taking values from the user: the prompt, the two step keys, and reading a
// cell as a whole number.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "core/wording.h"
#include "platform/grid.h"

constexpr std::int32_t byteLimit = 255;
constexpr std::int32_t wordLimit = 65535;

// The number in a cell as a whole one; no number counts as 0, and what leaves 32 bits as the nearer
// end.
std::int32_t cellNumber(std::string_view text);

// Shows the prompt for a cell's data with `answer` preset; "" when the user cancels.
std::string askForData(const Wording& question, const std::string& answer);

// Asks for a number with the current cell's value preset; the value goes into
// `EditorState.cellValue`. Nothing when the cell holds no number - no prompt opens then - or the
// answer is none.
std::optional<double> askForNumber(const Grid& grid, const Wording& question);

// Runs `change` with +1 if the key is the first character of `plusKey`, then with -1 if it is that
// of `minusKey`. An empty assignment matches no key.
void onStepKeys(char32_t key, const std::function<void(int direction)>& change);

// `value` + `step`, limited: at or above `limit` it is `limit`, below 1 it is 0.
std::int32_t stepped(std::int32_t value, std::int64_t step, std::int32_t limit);
