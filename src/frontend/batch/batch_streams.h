// The streams that the command line was called with.
#pragma once

// While it lives, bytes pass the streams as they are, and what a console shows is taken for UTF-8.
class PlainStreams {
 public:
  PlainStreams();
  ~PlainStreams();
  PlainStreams(const PlainStreams&) = delete;
  PlainStreams& operator=(const PlainStreams&) = delete;

 private:
  [[maybe_unused]] unsigned codePage_ = 0;  // of the console before; 0: none
};

// Whether a person sees what is told on standard error, as it comes.
bool errorsGoToATerminal();
