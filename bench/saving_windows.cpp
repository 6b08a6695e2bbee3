// Replacing a file of 64 KiB, beside the system's bare calls for the same: write, flush, rename.
// Turns are taken in pairs, so that what else the machine does falls on both alike.
#include <windows.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "platform/files.h"

namespace {

using Clock = std::chrono::steady_clock;
using Microseconds = std::chrono::duration<double, std::micro>;

constexpr std::size_t imageBytes = 65'536;
constexpr int turns = 400;

void bareCalls(const std::wstring& target, const std::vector<std::uint8_t>& bytes) {
  const std::wstring beside = target + L".new";
  DWORD written = 0;
  const HANDLE file = CreateFileW(beside.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                                  CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
  WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
  FlushFileBuffers(file);
  CloseHandle(file);
  MoveFileExW(beside.c_str(), target.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH);
}

template <class Run>
double timed(Run run) {
  const auto start = Clock::now();
  run();
  return Microseconds(Clock::now() - start).count();
}

double median(std::vector<double> figures) {
  const auto middle = figures.begin() + std::ssize(figures) / 2;
  std::nth_element(figures.begin(), middle, figures.end());
  return *middle;
}

}  // namespace

int main() {
  namespace fs = std::filesystem;
  const fs::path folder =
      fs::temp_directory_path() / ("saving_windows." + std::to_string(GetCurrentProcessId()));
  fs::create_directory(folder);
  const std::wstring bareName = (folder / "bare.bin").wstring();
  const std::string ownName = (folder / "own.bin").string();
  const std::vector<std::uint8_t> bytes(imageBytes, 0xA5);
  std::vector<double> bare;
  std::vector<double> own;
  std::vector<double> ratios;
  for (int i = 0; i < turns; ++i) {
    bare.push_back(timed([&] { bareCalls(bareName, bytes); }));
    own.push_back(timed([&] { replaceFile(ownName, bytes); }));
    ratios.push_back(own.back() / bare.back());
  }
  std::printf("bare calls %.0f us, replaceFile %.0f us, ratio of medians %.2f, median ratio %.2f\n",
              median(bare), median(own), median(own) / median(bare), median(ratios));
  fs::remove_all(folder);
}
