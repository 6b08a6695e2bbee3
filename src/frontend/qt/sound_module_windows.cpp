// The sound module where the system itself plays wave files: no multimedia library is needed.
#define WIN32_LEAN_AND_MEAN
#include <windows.h>
// After it: what it leaves out.
#include <mmsystem.h>

#include <filesystem>
#include <string>

// `path` is UTF-8. A sound that already plays ends.
extern "C" __declspec(dllexport) void zelkovaPlay(const char* path, bool looping) {
  const std::string utf8(path);
  const std::filesystem::path file(std::u8string(utf8.begin(), utf8.end()));
  const DWORD how = SND_FILENAME | SND_ASYNC | SND_NODEFAULT | (looping ? SND_LOOP : 0);
  PlaySoundW(file.c_str(), nullptr, how);
}

extern "C" __declspec(dllexport) void zelkovaStop() { PlaySoundW(nullptr, nullptr, 0); }
