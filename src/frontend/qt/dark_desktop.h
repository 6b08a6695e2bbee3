// Whether the user has asked the desktop for dark windows. The toolkit's themes tell it of some
// desktops only.
#pragma once

#include <functional>

// Runs `tell` when the desktop has answered that it is to be dark; where there is none, or it is
// light, nothing happens. Nobody waits for it.
void askForDark(std::function<void()> tell);
