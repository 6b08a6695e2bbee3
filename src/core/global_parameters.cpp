#include "core/global_parameters.h"

#include <cmath>
#include <cstdint>
#include <string>

#include "core/editor_state.h"
#include "core/form1.h"
#include "core/map_kinds.h"
#include "rom/map_values.h"

namespace {

void showParam(const ParamKind& kind) {
  const auto text = paramText(kind, editorState.image);
  if (!text) return;
  (form1().*kind.box).setText(*text);
  editorState.paramShown[static_cast<std::size_t>(kind.id)] = true;
}

}  // namespace

std::optional<std::string> paramText(const ParamKind& kind, const RomImage& image) {
  return paramText(editorState.addressMap, kind.id, image);
}

void showGlobalParams() {
  for (const ParamKind& kind : paramKinds()) showParam(kind);
}

void wireGlobalParams() {
  for (const ParamKind& kind : paramKinds()) {
    if (kind.scaled()) (form1().*kind.box).keyFilter = digitKey;
  }
}
