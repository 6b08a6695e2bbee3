// The moment at which other data stands here: another image, none, or the same image under another
// address map. Who keeps something that belongs to the former data gives it up here, by being
// called.
#pragma once

// Called when the former image is given up, when the new one is there, and when an address map
// comes into force.
void dataReplaced();
