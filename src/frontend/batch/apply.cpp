#include "frontend/batch/batch_commands.h"
#include "frontend/batch/editing_script.h"
#include "platform/text_encoding.h"

int apply(const Arguments& arguments) {
  readAddressMap(arguments.map);  // tells what is wrong with it
  const Bytes script = readWhole(arguments.script);
  const ImageFile file = readImage(arguments.images.front(), arguments.base);
  const Bytes image = edited(
      file.image, readAddressText(arguments.map),
      decodeText({reinterpret_cast<const char*>(script.data()), script.size()}), arguments.script);
  const auto form =
      arguments.form.empty() ? formNamed(arguments.output) : formNamed(arguments.form);
  writeWhole(arguments.output, encoded(image, form.value_or(file.content.form), file.base),
             arguments.whenThere);
  return fine;
}
