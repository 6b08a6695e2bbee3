// What the program's command line asks for: files to open, the help or the version.
#pragma once

#include <string>
#include <vector>

struct CommandLine {
  std::vector<std::string> files;  // from the root on
  // The program ends at once with `status`, after `text`, which goes to the standard error if that
  // isn't 0; "": the program runs.
  std::string text;
  int status = 0;
};

// `arguments` without the program's own name. Behind "--" everything is a file. The toolkit's own
// options are passed over.
CommandLine readCommandLine(const std::vector<std::string>& arguments);
