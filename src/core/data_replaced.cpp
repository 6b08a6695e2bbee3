#include "core/data_replaced.h"

#include "core/differences.h"
#include "core/form1.h"
#include "core/history.h"
#include "core/image_notices.h"
#include "core/map_display.h"

void dataReplaced() {
  forgetHistory();
  differencesOutdated();
  resetPanels();
  withdrawWhetherMapFits();
  form1().doneStatus.setCaption("");
}
