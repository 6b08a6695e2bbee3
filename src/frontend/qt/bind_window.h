// Binding of a top-level widget to a window record: title, activation, close box, Enter and Escape,
// any key, repainting.
#pragma once

#include <functional>

#include "controls/window.h"

class QWidget;

// `onShape` runs when the record tells that its parts stand in another order.
void bindWindow(QWidget* widget, Window& record, std::function<void()> onShape = {});
