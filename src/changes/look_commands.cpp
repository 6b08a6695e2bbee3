#include "changes/look_commands.h"

#include <algorithm>
#include <array>
#include <string>

#include "controls/desktop.h"
#include "core/form1.h"
#include "core/map_kinds.h"
#include "core/map_palette.h"
#include "core/own_files.h"
#include "platform/numbers.h"

namespace {

const std::string section = "View";
const std::string zoomKey = "Zoom";
const std::string fitKey = "Fit";
const std::string coloursKey = "Map colours";
const std::string secondColours = "second";

constexpr std::array zoomSteps{75, 90, 100, 110, 125, 150, 175, 200, 250, 300};

void keep(const std::string& key, const std::string& value) {
  desktop().storeValue(section, key, value) ? tellWritten(OwnFile::look)
                                            : tellNotWritten(OwnFile::look);
}

// From the size that is shown, also where none of the steps is.
int nextLarger(int percent) {
  const auto next = std::ranges::upper_bound(zoomSteps, percent);
  return next == zoomSteps.end() ? Zoom::most : *next;
}

int nextSmaller(int percent) {
  const auto here = std::ranges::lower_bound(zoomSteps, percent);
  return here == zoomSteps.begin() ? Zoom::least : *(here - 1);
}

void turnZoom(int notches) {
  int percent = form1().mapZoom.shown();
  for (; notches > 0 && percent < Zoom::most; --notches) percent = nextLarger(percent);
  for (; notches < 0 && percent > Zoom::least; ++notches) percent = nextSmaller(percent);
  setMapZoom(percent, false);
}

void repaintMaps() {
  for (const MapKind& kind : mapKinds()) gridOf(kind).refresh();
}

}  // namespace

void setMapZoom(int percent, bool fits) {
  Zoom& zoom = form1().mapZoom;
  const bool sameSize = percent == zoom.percent();
  const bool sameWay = fits == zoom.fits();
  if (sameSize && sameWay) return;
  zoom.set(percent, fits);
  if (!sameSize) keep(zoomKey, decimalText(zoom.percent()));
  if (!sameWay) keep(fitKey, fits ? "1" : "");
}

void restoreLook() {
  Zoom& zoom = form1().mapZoom;
  const auto percent = bareNumber(desktop().storedValue(section, zoomKey));
  zoom.set(percent.value_or(Zoom::usual), desktop().storedValue(section, fitKey) == "1");
  zoom.onTurn = turnZoom;
  useSecondColours(desktop().storedValue(section, coloursKey) == secondColours);
}

void zoomIn() { turnZoom(1); }

void zoomOut() { turnZoom(-1); }

void fitWindow() { setMapZoom(form1().mapZoom.percent(), !form1().mapZoom.fits()); }

void followZoom(MenuItem& row) {
  const Zoom& zoom = form1().mapZoom;
  if (row.name() == "fit_window") return row.setChecked(zoom.fits());
  row.setChecked(!zoom.fits() && row.name() == "zoom_" + decimalText(zoom.percent()));
}

void switchMapColours() {
  useSecondColours(!secondColoursInForce());
  keep(coloursKey, secondColoursInForce() ? secondColours : "");
  repaintMaps();
}

void followMapColours(MenuItem& row) { row.setChecked(secondColoursInForce()); }
