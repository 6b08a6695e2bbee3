#include "frontend/batch/many_files.h"

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <exception>
#include <thread>

#include "frontend/batch/batch_commands.h"
#include "frontend/batch/batch_streams.h"

namespace {

constexpr std::size_t filesForBar = 20;
constexpr int barWidth = 40;

void showBar(std::size_t done, std::size_t count) {
  const int full = static_cast<int>(done * barWidth / count);
  std::fprintf(stderr, "\r[%-*.*s] %zu of %zu%s", barWidth, full,
               "########################################", done, count, done == count ? "\n" : "");
}

}  // namespace

std::vector<FileResult> forEachFile(std::size_t count,
                                    const std::function<FileResult(std::size_t)>& work) {
  std::vector<FileResult> results(count);
  std::atomic<std::size_t> next = 0;
  std::atomic<std::size_t> done = 0;
  const bool bar = count >= filesForBar && errorsGoToATerminal();
  const auto run = [&](bool tells) {
    for (std::size_t i = next++; i < count; i = next++) {
      try {
        results[i] = work(i);
      } catch (const std::exception& error) {
        results[i] = {"", error.what(), trouble};
      }
      ++done;
      if (bar && tells) showBar(done, count);
    }
  };
  const std::size_t others =
      std::min<std::size_t>(count, std::max(1U, std::thread::hardware_concurrency())) - 1;
  std::vector<std::jthread> threads;
  for (std::size_t i = 0; i < others; ++i) threads.emplace_back(run, false);
  run(true);
  threads.clear();
  if (bar) showBar(count, count);
  return results;
}

void joinAsJson(std::vector<FileResult>& results) {
  std::string before = "[";
  for (FileResult& each : results) {
    if (each.text.empty()) continue;
    each.text = before + each.text;
    before = ",\n";
  }
  if (!results.empty()) results.back().text += before == "[" ? "[]\n" : "]\n";
}

int tellResults(const std::vector<FileResult>& results) {
  int code = fine;
  for (const FileResult& each : results) {
    std::fwrite(each.text.data(), 1, each.text.size(), stdout);
    if (!each.trouble.empty()) {
      std::fflush(stdout);
      std::fprintf(stderr, "zelkova-batch: %s\n", each.trouble.c_str());
    }
    code = std::max(code, each.code);
  }
  if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) {
    throw Trouble("standard output can't be written");
  }
  return code;
}
