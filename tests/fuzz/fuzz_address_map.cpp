// Any bytes as an address map: parsed, drawn from an image and written back, nothing but boxes
// comes of it and the image keeps its length. What is wrong with it stands in its lines.
#include "bed.h"
#include "core/address_map.h"
#include "core/global_parameters.h"
#include "core/map_display.h"
#include "core/rom_image.h"
#include "platform/failure.h"
#include "platform/text_encoding.h"
#include "rom/address_check.h"
#include "rom/image_differences.h"

namespace {

void checkAndCompare(std::string_view bytes, const RomImage& image) {
  const std::string text = decodeText(bytes);
  const CheckedAddressMap checked = checkAddressMap(text, image);
  for (const AddressProblem& each : checked.problems) {
    require(each.line <= splitLines(text).size() && !each.what.empty());
  }
  RomImage other = image;
  for (std::size_t i = 0; i < other.size(); i += 7) other[i] = 0xFF;
  trapFailure([&] {
    require(!imageDifferences({checked.map, image, other}).empty());
    require(imageDifferences({checked.map, image, image}).empty());
  });
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  constexpr std::size_t imageBytes = 4096;
  FuzzBed bed;
  const std::string path = bed.write("map.adr", {reinterpret_cast<const char*>(data), size});
  if (trapFailure([&] { readAddressFile(path); }) == 0) SET_MAP_ADDR();
  editorState.image = RomImage(imageBytes, 0x5A);
  editorState.savedImage = editorState.image;
  editorState.imageSize = imageBytes;
  redrawAllMaps();
  trapFailure(showGlobalParams);
  setGridLayout();
  writeBackAll();
  require(editorState.image.size() == imageBytes);
  checkAndCompare({reinterpret_cast<const char*>(data), size}, RomImage(imageBytes, 0x5A));
  return 0;
}
