#include "frontend/manual.h"

#include <string>
#include <utility>

#include "controls/desktop.h"
#include "controls/window.h"
#include "core/editor_state.h"
#include "platform/files.h"

namespace {

constexpr const char* mainPlace = "window";

constexpr std::pair<const char*, const char*> places[] = {
    {"Form2", "setup"},      {"Form3", "editmenu"},
    {"Form4", "editmenu"},   {"Form5", "af"},
    {"Form6", "addresses"},  {"Form7", "editmenu"},
    {"Form8", "editmenu"},   {"Form9", "environment"},
    {"Form10", "editmenu"},  {"Form11", "editmenu"},
    {"Form13", "addresses"}, {"DR_GRAPH", "graph3d"},
    {"D2_GRAPH", "tpcurve"}, {"oddeven", "oddeven"},
    {"frmAbout", "setup"},   {"Differences", "changes"},
    {"Set", "many"},         {"Percent", "many"},
    {"Interpolate", "many"}, {"EarlierStates", "earlier"},
    {"AnyForm", "anyform"},  {"Print", "export"},
};

}  // namespace

const char* manualPlace(const Window& window) {
  for (const auto& [name, place] : places) {
    if (window.name() == name) return place;
  }
  return mainPlace;
}

// What opens a page may forget a place behind its name: each place has a page that leads there.
void openManual(const Window& window) {
  const std::string language = editorState.english == 1 ? "en" : "ja";
  const std::string page = language + "_" + manualPlace(window) + ".html";
  const std::string folder = joinPath(joinPath(editorState.appPath, "manual"), "places");
  desktop().openAddress(joinPath(folder, page));
}
