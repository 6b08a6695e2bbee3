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

std::string storedDigits(const ParamEntry& entry) {
  std::string digits;
  for (int i = 0; i < entry.bytes; ++i) {
    const int byte = imageByte(std::int64_t{entry.address} + i);
    digits += padHex(hexText(static_cast<std::uint32_t>(byte)), 1);
  }
  return digits;
}

// The big-endian number; eight digits with the top bit set make it negative.
std::int32_t storedNumber(const ParamEntry& entry) {
  std::uint32_t number = 0;
  for (int i = 0; i < entry.bytes; ++i) {
    number = number << 8 | static_cast<std::uint32_t>(imageByte(std::int64_t{entry.address} + i));
  }
  return static_cast<std::int32_t>(number);
}

void showParam(const ParamKind& kind) {
  const ParamEntry& entry = editorState.addressMap.param(kind.id);
  if (!entry.present()) return;
  TextBox& box = form1().*kind.box;
  bool& shown = editorState.paramShown[static_cast<std::size_t>(kind.id)];
  if (!kind.scaled()) {
    box.setText(storedDigits(entry));
    shown = true;
  } else if (entry.bytes <= maximumScaledBytes) {
    box.setText(plainNumber(std::floor(double{entry.scale} * storedNumber(entry))));
    shown = true;
  } else {
    imageByte(std::int64_t{entry.address} + entry.bytes - 1);
  }
}

}  // namespace

void showGlobalParams() {
  for (const ParamKind& kind : paramKinds()) showParam(kind);
}

void wireGlobalParams() {
  for (const ParamKind& kind : paramKinds()) {
    if (kind.scaled()) (form1().*kind.box).keyFilter = digitKey;
  }
}
