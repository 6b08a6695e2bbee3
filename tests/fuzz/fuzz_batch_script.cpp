// Any text as a script: it is refused with its file named, or gives an image of the same length
// that differs inside the address map alone.
#include <algorithm>

#include "bed.h"
#include "frontend/batch/editing_script.h"

namespace {

constexpr int before = 16;  // of the bytes that the address map names
constexpr int behind = 90;
constexpr const char* car =
    "TYPE_UNIT\nCAR\nHIGH_FUEL,16,5,4,20,0,\nTP_SCALE_FUEL,36,5,1,5,0,\nRPM_SCALE_FUEL,41,4,1,4,50,"
    "\nVQ_MAP,45,6,1,12,0,\nADD_MAP1,57,3,3,9,3,\nTTP_MAX,66,16,1,16,0,\nREV1_LIMIT,82,2,1,2,12.5,"
    "\nK_DATA,84,3,1,3,0,\nSPEED1_LIMIT,87,3,1,3,1,\n";

Bytes carImage() {
  Bytes image(100);
  for (std::size_t i = 0; i < image.size(); ++i) image[i] = static_cast<std::uint8_t>(i * 37);
  return image;
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzBed bed;
  const Bytes image = carImage();
  try {
    const std::string script(reinterpret_cast<const char*>(data), size);
    const Bytes result = edited(image, car, script, "lean.txt");
    require(result.size() == image.size());
    require(std::equal(image.begin(), image.begin() + before, result.begin()));
    require(std::equal(image.begin() + behind, image.end(), result.begin() + behind));
  } catch (const Trouble& trouble) {
    require(std::string_view(trouble.what()).starts_with("lean.txt"));
  }
  useDesktop(&bed.desk);
  return 0;
}
