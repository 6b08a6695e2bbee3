// Here streams carry bytes as they are.
#include <unistd.h>

#include "frontend/batch/batch_streams.h"

PlainStreams::PlainStreams() = default;
PlainStreams::~PlainStreams() = default;

bool errorsGoToATerminal() { return isatty(STDERR_FILENO) != 0; }
