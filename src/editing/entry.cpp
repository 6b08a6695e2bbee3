#include "editing/entry.h"

#include <algorithm>
#include <limits>

#include "core/editor_state.h"
#include "platform/desktop.h"
#include "platform/failure.h"
#include "platform/numbers.h"
#include "platform/utf8.h"

namespace {

const Wording promptTitle{"データ変更", "Data change"};

bool isAssigned(char32_t key, const std::string& assignment) {
  const std::u32string characters = utf32(assignment);
  return !characters.empty() && characters.front() == key;
}

}  // namespace

std::int32_t cellNumber(std::string_view text) {
  constexpr double lowest = std::numeric_limits<std::int32_t>::min();
  constexpr double highest = std::numeric_limits<std::int32_t>::max();
  return roundToLong(std::clamp(parseNumber(text), lowest, highest));
}

std::string askForData(const Wording& question, const std::string& answer) {
  return desktop().askText({worded(promptTitle), worded(question), answer});
}

std::optional<double> askForNumber(const Grid& grid, const Wording& question) {
  const std::string& text = grid.text(grid.row(), grid.column());
  if (trapFailure([&text] { editorState.cellValue = parseLong(text); }) != 0) return std::nullopt;
  return parseAnswer(askForData(question, decimalText(editorState.cellValue)));
}

void onStepKeys(char32_t key, const std::function<void(int direction)>& change) {
  if (isAssigned(key, editorState.plusKey)) change(1);
  if (isAssigned(key, editorState.minusKey)) change(-1);
}

std::int32_t stepped(std::int32_t value, std::int64_t step, std::int32_t limit) {
  const std::int64_t next = value + step;
  if (next >= limit) return limit;
  return next < 1 ? 0 : static_cast<std::int32_t>(next);
}
