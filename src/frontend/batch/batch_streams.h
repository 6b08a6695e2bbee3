// The streams that the command line was called with.
#pragma once

// From now on bytes pass the streams as they are, and what a console shows is taken for UTF-8.
// Gives the console's code page before; 0: none.
unsigned usePlainStreams();
void giveStreamsBack(unsigned codePage);

// Whether a person sees what is told on standard error, as it comes.
bool errorsGoToATerminal();
