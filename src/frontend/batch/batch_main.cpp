// The process of the command line.
#include "frontend/batch/batch_command_line.h"
#include "frontend/batch/batch_streams.h"
#include "platform/program_call.h"

int main(int count, char** texts) {
  const PlainStreams streams;
  return runCommandLine(programArguments(count, texts));
}
