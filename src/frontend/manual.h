// The manual at the place that explains a window.
#pragma once

class Window;

void openManual(const Window& window);
// The heading of the manual, in both languages the same, that explains the window.
const char* manualPlace(const Window& window);
