#include "frontend/batch/batch_commands.h"
#include "frontend/batch/editing_script.h"
#include "frontend/batch/written_files.h"
#include "platform/files.h"

int report(const Arguments& arguments) {
  requireRoomForJson(arguments, arguments.output);
  readAddressMap(arguments.map);  // tells what is wrong with it
  const ImageFile file = readImage(arguments.images.front(), arguments.base);
  const std::string page = reportOf(file.image, readAddressText(arguments.map),
                                    fileNameOf(file.path), arguments.japanese);
  writeWhole(arguments.output, page, arguments.whenThere);
  return tellWritten(arguments,
                     {tellOf(arguments, {{file.path}, arguments.output, "html", page.size()})});
}
