// The process of the command line.
#include "frontend/batch/batch_command_line.h"
#include "frontend/batch/batch_streams.h"
#include "platform/program_call.h"

int main(int count, char** texts) {
  const unsigned codePage = usePlainStreams();
  const int code = runCommandLine(programArguments(count, texts));
  giveStreamsBack(codePage);
  return code;
}
