#include "core/data_replaced.h"

#include "core/history.h"
#include "core/map_display.h"

void dataReplaced() {
  forgetHistory();
  resetPanels();
}
