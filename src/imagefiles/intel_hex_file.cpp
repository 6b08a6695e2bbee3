#include "imagefiles/intel_hex_file.h"

#include "core/earlier_states.h"
#include "rom/intel_hex_writer.h"

std::string writeIntelHex(const std::string& path, std::span<const std::uint8_t> source) {
  std::string text = intelHexText(source);
  replaceUserFile(path, {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
  return text;
}
