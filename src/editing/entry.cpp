#include "editing/entry.h"

#include "controls/desktop.h"
#include "core/editor_state.h"
#include "core/key_assignment.h"
#include "editing/selection.h"
#include "platform/failure.h"
#include "platform/numbers.h"

namespace {

const Wording promptTitle{"データ変更", "Data change"};

}  // namespace

std::string askForData(const Wording& question, const std::string& answer) {
  return desktop().askText({worded(promptTitle), worded(question), answer});
}

std::optional<double> askForNumber(const Grid& grid, const Wording& question) {
  if (!isDataCell(grid, grid.row(), grid.column())) return std::nullopt;
  const std::string& text = grid.text(grid.row(), grid.column());
  if (trapFailure([&text] { editorState.cellValue = parseLong(text); }) != 0) return std::nullopt;
  return parseAnswer(askForData(question, decimalText(editorState.cellValue)));
}

void onStepKeys(char32_t key, const std::function<void(int direction)>& change) {
  if (isAssignedKey(editorState.plusKey, key)) change(1);
  if (isAssignedKey(editorState.minusKey, key)) change(-1);
}

std::int32_t stepped(std::int32_t value, int direction, std::int32_t step, std::int32_t limit) {
  const std::int64_t next = value + std::int64_t{step} * direction;
  if (direction > 0 && next >= limit) return limit;
  if (direction < 0 && next < 1) return 0;
  return clampTo32Bits(next);
}
