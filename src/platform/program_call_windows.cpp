// The system hands arguments over in UTF-16; those of main are in its code page and may have lost
// characters. A program of windows has no console of its own: unless its streams are led
// elsewhere, it writes to that of its caller.
#include <windows.h>
// after windows.h
#include <shellapi.h>

#include <algorithm>
#include <cstddef>
#include <string>

#include "platform/program_call.h"

namespace {

// What is no character becomes U+FFFD.
std::string utf8Of(const wchar_t* text) {
  const int length = WideCharToMultiByte(CP_UTF8, 0, text, -1, nullptr, 0, nullptr, nullptr);
  std::string utf8(static_cast<std::size_t>(std::max(length, 1)), '\0');
  WideCharToMultiByte(CP_UTF8, 0, text, -1, utf8.data(), length, nullptr, nullptr);
  utf8.pop_back();  // the end of the text
  return utf8;
}

}  // namespace

std::vector<std::string> programArguments(int, const char* const*) {
  int count = 0;
  LPWSTR* const parts = CommandLineToArgvW(GetCommandLineW(), &count);
  std::vector<std::string> arguments;
  for (int i = 1; parts && i < count; ++i) arguments.push_back(utf8Of(parts[i]));
  LocalFree(parts);
  return arguments;
}

void tellCaller(Stream stream, const std::string& text) {
  const DWORD number = stream == Stream::error ? STD_ERROR_HANDLE : STD_OUTPUT_HANDLE;
  HANDLE to = GetStdHandle(number);
  if (!to || to == INVALID_HANDLE_VALUE) {
    if (!AttachConsole(ATTACH_PARENT_PROCESS)) return;
    to = GetStdHandle(number);
  }
  DWORD written = 0;
  WriteFile(to, text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
}
