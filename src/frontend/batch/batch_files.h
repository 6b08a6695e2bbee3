// Files of the command line: images of any form, address maps, and results that replace nothing
// unasked. "-" is standard input or output.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

#include "rom/image_reading.h"
#include "rom/map_entries.h"

// What ends a command: file, line where there is one, and what to do.
class Trouble : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

using Bytes = std::vector<std::uint8_t>;

struct ImageFile {
  std::string path;
  ImageContent content;
  std::uint32_t base = 0;  // the address of the image's first byte
  Bytes image;
};

// `base`: where the image begins, else as usualBase tells. Raw bytes are moved there.
ImageFile readImage(const std::string& path, std::optional<std::uint32_t> base = {});
Bytes readWhole(const std::string& path);

// The text of an address map file, as UTF-8.
std::string readAddressText(const std::string& path);
// A map that the program would stop reading, or that names nothing, is trouble.
AddressMap readAddressMap(const std::string& path);

enum class WhenThere { refuse, replace };
// What is there is trouble, unless it is to be replaced.
void requireRoom(const std::string& path, WhenThere whenThere);
void writeWhole(const std::string& path, std::span<const std::uint8_t> bytes, WhenThere whenThere);
void writeWhole(const std::string& path, const std::string& text, WhenThere whenThere);

// A file's bytes: a text, or those of the image, which outlives it.
struct Encoded {
  std::string text;
  std::span<const std::uint8_t> image;
};
void writeWhole(const std::string& path, const Encoded& file, WhenThere whenThere);

// By name or by extension; nothing for another one.
std::optional<ImageFileForm> formNamed(const std::string& name);
const char* nameOf(ImageFileForm form);
// `base`: the address of the first byte where the form tells it.
Encoded encoded(const Bytes& image, ImageFileForm form, std::uint32_t base);
