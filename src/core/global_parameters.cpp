#include "core/global_parameters.h"

#include <cmath>
#include <cstdint>
#include <string>

#include "core/editor_state.h"
#include "core/form1.h"
#include "core/image_bytes.h"
#include "core/map_kinds.h"
#include "platform/numbers.h"

namespace {

std::string storedDigits(const ParamEntry& entry, const RomImage& image) {
  std::string digits;
  for (int i = 0; i < entry.bytes; ++i) {
    const int byte = byteOf(image, std::int64_t{entry.address} + i);
    digits += hexDigits(byte, 1);
  }
  return digits;
}

// The big-endian number; eight digits with the top bit set make it negative.
std::int32_t storedNumber(const ParamEntry& entry, const RomImage& image) {
  std::uint32_t number = 0;
  for (int i = 0; i < entry.bytes; ++i) {
    number =
        number << 8 | static_cast<std::uint32_t>(byteOf(image, std::int64_t{entry.address} + i));
  }
  return static_cast<std::int32_t>(number);
}

void showParam(const ParamKind& kind) {
  const auto text = paramText(kind, editorState.image);
  if (!text) return;
  (form1().*kind.box).setText(*text);
  editorState.paramShown[static_cast<std::size_t>(kind.id)] = true;
}

}  // namespace

std::optional<std::string> paramText(const ParamKind& kind, const RomImage& image) {
  const ParamEntry& entry = editorState.addressMap.param(kind.id);
  if (!entry.present()) return {};
  if (!kind.scaled()) return storedDigits(entry, image);
  byteOf(image, std::int64_t{entry.address} + entry.bytes - 1);
  if (entry.bytes > maximumScaledBytes) return {};
  return plainNumber(std::floor(double{entry.scale} * storedNumber(entry, image)));
}

void showGlobalParams() {
  for (const ParamKind& kind : paramKinds()) showParam(kind);
}

void wireGlobalParams() {
  for (const ParamKind& kind : paramKinds()) {
    if (kind.scaled()) (form1().*kind.box).keyFilter = digitKey;
  }
}
