// Writing an image back into the form and to the addresses of the file that it came from.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "rom/image_reading.h"

// How an image lies in its file.
struct FileLayout {
  ImageFileForm form = ImageFileForm::raw;
  std::uint32_t base = 0;               // the address of the image's first byte
  std::vector<AddressRange> gaps = {};  // in the image, but not in the file
};

// The layout of an image of bytesFrom(content, base).
FileLayout layoutOf(const ImageContent& content, std::uint32_t base);

// The file's bytes. A gap's FF stays out, what was changed there is written. Nothing where the form
// can't hold the image so that reading gives exactly it again.
std::optional<std::vector<std::uint8_t>> fileOf(std::span<const std::uint8_t> image,
                                                const FileLayout& layout);
