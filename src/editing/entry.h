// What all grids share in taking values from the user: the prompt and the two step keys.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "controls/grid.h"
#include "core/wording.h"

// Shows the prompt for a cell's data with `answer` preset; "" when the user cancels.
std::string askForData(const Wording& question, const std::string& answer);

// Asks for a number with the current cell's value preset; the value goes into
// `EditorState.cellValue`. Nothing when the cell is a header or holds no number - no prompt opens
// then - or the answer is none.
std::optional<double> askForNumber(const Grid& grid, const Wording& question);

// Runs `change` with +1 if the key is the first character of `plusKey`, then with -1 if it is that
// of `minusKey`. An empty assignment matches no key.
void onStepKeys(char32_t key, const std::function<void(int direction)>& change);

// `value` one `step` up or down. What is raised to `limit` or above becomes `limit`, what is
// lowered below 1 becomes 0; a value beyond `limit` can still be lowered step by step.
std::int32_t stepped(std::int32_t value, int direction, std::int32_t step, std::int32_t limit);
