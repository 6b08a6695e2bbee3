#include "frontend/batch/batch_commands.h"
#include "frontend/batch/editing_script.h"
#include "frontend/batch/written_files.h"
#include "platform/text_encoding.h"

int apply(const Arguments& arguments) {
  requireRoomForJson(arguments, arguments.output);
  readAddressMap(arguments.map);  // tells what is wrong with it
  const Bytes script = readWhole(arguments.script);
  const ImageFile file = readImage(arguments.images.front(), arguments.base);
  const Bytes image = edited(
      file.image, readAddressText(arguments.map),
      decodeText({reinterpret_cast<const char*>(script.data()), script.size()}), arguments.script);
  const ImageFileForm form = formOf(arguments, arguments.output, file.content.form);
  writeWhole(arguments.output, encoded(image, form, file.base), arguments.whenThere);
  return tellWritten(
      arguments, {tellOf(arguments, {{file.path}, arguments.output, nameOf(form), image.size()})});
}
