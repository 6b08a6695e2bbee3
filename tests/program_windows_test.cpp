// What Windows shows of the program and what the program asks of it, read back from what was built.
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

fs::path built(const char* path) { return fs::absolute(path).make_preferred(); }

TEST(ProgramOnWindows, HasIconManifestAndVersion) {
  const fs::path path = built(PROGRAM);
  const HMODULE program = LoadLibraryExW(path.c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
  ASSERT_NE(program, nullptr) << path;
  EXPECT_NE(FindResourceW(program, MAKEINTRESOURCEW(1), MAKEINTRESOURCEW(14)), nullptr) << "icon";
  const HRSRC found = FindResourceW(program, MAKEINTRESOURCEW(1), MAKEINTRESOURCEW(24));
  ASSERT_NE(found, nullptr) << "manifest";
  const std::string manifest(static_cast<const char*>(LockResource(LoadResource(program, found))),
                             SizeofResource(program, found));
  for (const char* text : {"asInvoker", "PerMonitorV2", ">UTF-8<", "longPathAware"}) {
    EXPECT_NE(manifest.find(text), std::string::npos) << text;
  }
  FreeLibrary(program);

  std::vector<char> info(GetFileVersionInfoSizeW(path.c_str(), nullptr));
  ASSERT_FALSE(info.empty()) << "version";
  GetFileVersionInfoW(path.c_str(), 0, static_cast<DWORD>(info.size()), info.data());
  void* text = nullptr;
  UINT size = 0;
  ASSERT_NE(VerQueryValueA(info.data(), "\\StringFileInfo\\040904B0\\FileVersion", &text, &size),
            0);
  EXPECT_STREQ(static_cast<const char*>(text), VERSION);
  ASSERT_NE(VerQueryValueA(info.data(), "\\", &text, &size), 0);
  const auto* const fixed = static_cast<const VS_FIXEDFILEINFO*>(text);
  const DWORD high = fixed->dwFileVersionMS, low = fixed->dwFileVersionLS;
  EXPECT_EQ(std::to_string(HIWORD(high)) + '.' + std::to_string(LOWORD(high)) + '.' +
                std::to_string(HIWORD(low)),
            VERSION);
}

TEST(ProgramOnWindows, PlaysSoundsWithoutAnyMultimediaLibrary) {
  const HMODULE sound = LoadLibraryW(built(SOUND).c_str());
  ASSERT_NE(sound, nullptr) << SOUND;
  for (const char* call : {"zelkovaPlay", "zelkovaStop"}) {
    EXPECT_NE(GetProcAddress(sound, call), nullptr) << call;
  }
}

}  // namespace
