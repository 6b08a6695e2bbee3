// Streams of texts would turn line feeds into two characters, and end at a Ctrl+Z.
#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <cstdio>
#include <initializer_list>

#include "frontend/batch/batch_streams.h"

unsigned usePlainStreams() {
  const unsigned codePage = GetConsoleOutputCP();
  for (FILE* const stream : {stdin, stdout, stderr}) _setmode(_fileno(stream), _O_BINARY);
  SetConsoleOutputCP(CP_UTF8);
  return codePage;
}

void giveStreamsBack(unsigned codePage) {
  if (codePage != 0) SetConsoleOutputCP(codePage);
}

bool errorsGoToATerminal() { return _isatty(_fileno(stderr)) != 0; }
