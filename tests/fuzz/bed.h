// What every fuzzer stands on: a program on the headless desktop in a folder of its own, set back
// between two inputs, and a check that stays in optimised builds.
#pragma once

#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <span>
#include <string>
#include <string_view>

#include "core/editor_state.h"
#include "core/form1.h"
#include "frontend/headless/headless_desktop.h"
#include "scratch_folder.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

inline void require(bool holds) {
  if (!holds) std::abort();
}

class FuzzBed {
 public:
  FuzzBed() {
    discardForm1();
    editorState = EditorState{};
    editorState.appPath = folder().path().string();
    editorState.english = 1;
    useDesktop(&desk);
  }
  ~FuzzBed() {
    discardForm1();
    useDesktop(nullptr);
  }
  FuzzBed(const FuzzBed&) = delete;
  FuzzBed& operator=(const FuzzBed&) = delete;

  std::string write(std::string_view name, std::string_view bytes) {
    const std::string path = folder() / name;
    std::ofstream(path, std::ios::binary) << bytes;
    return path;
  }

  HeadlessDesktop desk;

 private:
  static ScratchFolder& folder() {
    static ScratchFolder scratch;
    return scratch;
  }
};
