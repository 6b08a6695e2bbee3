// The captions of the main window in English. Its records start with the Japanese ones.
#pragma once

// Sets all captions of Form1 to their English form if `language` is 1; any other value changes
// nothing.
void CHANGE_CAPT(int language);
