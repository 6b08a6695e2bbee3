#include "core/refusals.h"

#include "core/dialogs.h"
#include "core/editor_state.h"

namespace {

const Wording noAddressMap{
    "機種別アドレスが読み込まれていないのに、ROMデータを読み込もうとしました。",
    "An address file reads and been crowded, it aren't possible to read ROM data and be crowded."};

}  // namespace

const Wording nothingToSave{"データが読み込まれていないのに保存しようとしました。",
                            "Data did to preserve it been crowded as reading."};

const Wording nothingSelected{"先にマップかスケールのセルを選択してください。",
                              "Please select cells of a map or of a scale first."};

bool refusedWithoutAddressMap() {
  if (!editorState.addressMap.typeUnit.empty()) return false;
  showRefusal(noAddressMap);
  return true;
}

bool refusedWithoutImage(const Wording& text) {
  if (editorState.imageSize != 0) return false;
  showRefusal(text);
  return true;
}
