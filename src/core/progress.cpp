#include "core/progress.h"

#include <algorithm>

#include "core/editor_state.h"
#include "core/form1.h"

namespace {

constexpr int progressCells = 1170;  // of a usual model, whatever the address map holds

}  // namespace

void setProgress(int count) { setProgressOf(count, progressCells); }

void countProgress() { setProgress(++editorState.progressCount); }

void setProgressOf(std::int64_t done, std::int64_t total) {
  if (total <= 0) return;
  const std::int64_t part = done < 0 ? 0 : std::min<std::int64_t>(done * 100 / total + 1, 100);
  form1().ProgressBar1.setValue(static_cast<int>(part));
}
