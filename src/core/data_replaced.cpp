#include "core/data_replaced.h"

#include "core/differences.h"
#include "core/form1.h"
#include "core/history.h"
#include "core/map_display.h"

void dataReplaced() {
  forgetHistory();
  differencesOutdated();
  resetPanels();
  form1().doneStatus.setCaption("");
}
