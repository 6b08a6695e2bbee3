#include "frontend/qt/windows/make_window.h"

#include <array>

#include "calc/af_table.h"
#include "calc/engine_specification.h"
#include "changes/differences_window.h"
#include "core/form1.h"
#include "editing/add_multiply.h"
#include "editing/address_dialog.h"
#include "editing/address_grid.h"
#include "editing/cell_change_dialogs.h"
#include "editing/map_copy.h"
#include "editing/map_shift.h"
#include "editing/smoothing.h"
#include "exchange/print_dialog.h"
#include "frontend/about.h"
#include "frontend/environment.h"
#include "frontend/qt/windows/layouts.h"
#include "frontend/splash.h"
#include "graphs/dr_graph.h"
#include "graphs/tp_curve.h"
#include "imagefiles/any_form.h"
#include "imagefiles/earlier_states_window.h"
#include "imagefiles/odd_even.h"

namespace {

struct Layout {
  Window& (*window)();
  QWidget* (*make)();
};

// The main window's record is made anew in each run of the program, the others stand.
Window& form1Record() { return form1(); }

template <auto& record>
Window& recordOf() {
  return record;
}

constexpr std::array layouts{
    Layout{form1Record, makeForm1Window},
    Layout{recordOf<form2>, makeForm2Window},
    Layout{recordOf<form3>, makeForm3Window},
    Layout{recordOf<form4>, makeForm4Window},
    Layout{recordOf<form5>, makeForm5Window},
    Layout{recordOf<form6>, makeForm6Window},
    Layout{recordOf<form7>, makeForm7Window},
    Layout{recordOf<form8>, makeForm8Window},
    Layout{recordOf<form9>, makeForm9Window},
    Layout{recordOf<form10>, makeForm10Window},
    Layout{recordOf<form11>, makeForm11Window},
    Layout{recordOf<form13>, makeForm13Window},
    Layout{recordOf<D2_GRAPH>, makeD2GraphWindow},
    Layout{recordOf<DR_GRAPH>, makeDrGraphWindow},
    Layout{recordOf<oddeven>, makeOddEvenWindow},
    Layout{recordOf<frmAbout>, makeAboutWindow},
    Layout{recordOf<frmSplash>, makeSplashWindow},
    Layout{recordOf<setDialog>, makeSetWindow},
    Layout{recordOf<percentDialog>, makePercentWindow},
    Layout{recordOf<interpolateDialog>, makeInterpolateWindow},
    Layout{recordOf<differencesWindow>, makeDifferencesWindow},
    Layout{recordOf<earlierStatesWindow>, makeEarlierStatesWindow},
    Layout{recordOf<anyFormWindow>, makeAnyFormWindow},
    Layout{recordOf<printDialog>, makePrintWindow},
};

}  // namespace

QWidget* makeWindow(Window& window) {
  for (const Layout& layout : layouts) {
    if (&layout.window() == &window) return layout.make();
  }
  return nullptr;
}

std::vector<Window*> allWindows() {
  std::vector<Window*> windows;
  windows.reserve(std::size(layouts));
  for (const Layout& layout : layouts) windows.push_back(&layout.window());
  return windows;
}
