#include "core/loader_tail.h"

#include "core/boost.h"
#include "core/data_replaced.h"
#include "core/form1.h"
#include "core/global_parameters.h"
#include "core/image_notices.h"
#include "core/map_display.h"
#include "core/title_and_size.h"

void loaderTail() {
  updateTitleBar();
  {
    const GridsPause pause;
    dataReplaced();
    tellWhetherMapFits();
    tellContents();  // the weightier of the two: what is no image fits no map
    redrawAllMaps();
    showGlobalParams();
    setGridLayout();
    recalculateBoost();
  }
  form1().refresh();
}
