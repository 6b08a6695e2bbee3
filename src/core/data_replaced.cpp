#include "core/data_replaced.h"

#include "core/map_display.h"

void dataReplaced() { resetPanels(); }
