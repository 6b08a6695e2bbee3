#include "core/engine_summary.h"

#include "core/editor_state.h"
#include "core/form1.h"
#include "platform/numbers.h"

void showEngineSummary() {
  form1().Label34.setCaption(signedBlank(editorState.displacement) + "/" +
                             decimalText(editorState.cylinders) + "   Inj." +
                             decimalText(editorState.injectorSize));
}
