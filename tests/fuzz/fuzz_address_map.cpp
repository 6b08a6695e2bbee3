// Any bytes as an address map: parsed, drawn from an image and written back, nothing but boxes
// comes of it and the image keeps its length.
#include "bed.h"
#include "core/address_map.h"
#include "core/global_parameters.h"
#include "core/map_display.h"
#include "core/rom_image.h"
#include "platform/failure.h"

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
  return 0;
}
