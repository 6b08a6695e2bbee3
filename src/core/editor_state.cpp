#include "core/editor_state.h"

EditorState editorState;

namespace {

constexpr std::int64_t probeBytes = 17;
constexpr std::int64_t headBytes = 16;

bool anyByteSet(std::int64_t first, std::int64_t count) {
  const RomImage& image = editorState.image;
  for (std::int64_t i = first; i < first + count; ++i) {
    const bool inside = i >= 0 && i < static_cast<std::int64_t>(image.size());
    if (inside && image[static_cast<std::size_t>(i)] != 0) return true;
  }
  return false;
}

}  // namespace

bool isRomLoaded() {
  return anyByteSet(editorState.probeAddress, probeBytes) || anyByteSet(0, headBytes);
}
