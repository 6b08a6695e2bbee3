// Background sound. The part that needs the multimedia library is a module beside the program,
// loaded with the first sound; where it is missing there is silence.
#pragma once

#include <string>

void startSound(const std::string& path, bool looping);
// Nothing when no sound was started.
void endSound();
