#include "core/wording.h"

#include "core/editor_state.h"

std::string worded(const Wording& wording) {
  return editorState.english != 0 ? wording.english : wording.japanese;
}

std::string captioned(const Wording& wording) {
  return editorState.english == 1 ? wording.english : wording.japanese;
}

std::string captionedBoth(const BothTexts& texts) {
  return editorState.english == 1 ? texts.english : texts.japanese;
}
