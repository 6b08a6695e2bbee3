// Here streams carry bytes as they are.
#include <unistd.h>

#include "frontend/batch/batch_streams.h"

unsigned usePlainStreams() { return 0; }

void giveStreamsBack(unsigned) {}

bool errorsGoToATerminal() { return isatty(STDERR_FILENO) != 0; }
