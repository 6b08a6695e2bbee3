// The same work on many files, on all cores. Results come in the files' order.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

// What came of one file: text for standard output, or trouble for standard error.
struct FileResult {
  std::string text;
  std::string trouble;
  int code = 0;
};

// Runs `work(i)` for i from 0 to `count`. A bar on standard error tells how far it has come, where
// that is a terminal and there are many files.
std::vector<FileResult> forEachFile(std::size_t count,
                                    const std::function<FileResult(std::size_t)>& work);

// Makes one JSON list of the texts; files that brought trouble are not in it.
void joinAsJson(std::vector<FileResult>& results);

// Puts out what came of each file; gives the largest code.
int tellResults(const std::vector<FileResult>& results);
