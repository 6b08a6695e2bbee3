// The history of the user's changes: one step for each gesture of the main window and its dialogs
// that changed something, back and forth, across saves.
#pragma once

#include <cstddef>
#include <functional>
#include <string>

#include "core/wording.h"

// Begins to keep what gestures change; to be called once for each main window.
void keepHistory();

// Says what the gesture under way does: "addition -5". What is said last stands.
void nameStep(const Wording& what);
// The same with a figure behind it.
void nameStep(const Wording& what, const std::string& figure);

bool canUndo();
bool canRedo();
// What the next step back or forth would change, and where: "addition -5, Hi octane fuel map".
std::string undoName();
std::string redoName();

// One step back or forth, with the tab and the selection where it happened, and the cells that came
// back lit up. Nothing where there is no step.
void undoStep();
void redoStep();

// Other data stands here now: all steps are forgotten, the one under way included.
void forgetHistory();

// Bytes that the steps take in memory. The oldest go beyond `historyLimit`, never the newest.
std::size_t historyBytes();
constexpr std::size_t historyLimit = std::size_t{64} << 20;

// Told after each gesture.
extern std::function<void()> onHistoryChange;
