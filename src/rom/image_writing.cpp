#include "rom/image_writing.h"

#include <algorithm>
#include <string>

#include "rom/intel_hex_writer.h"
#include "rom/srecord_writer.h"

namespace {

constexpr std::uint8_t filler = 0xFF;

using Bytes = std::span<const std::uint8_t>;

// Adds the parts of a gap that hold something.
void addFilled(std::vector<AddressedBytes>& parts, Bytes gap, std::uint64_t address) {
  const auto holds = [](std::uint8_t byte) { return byte != filler; };
  for (auto at = gap.begin();;) {
    const auto from = std::find_if(at, gap.end(), holds);
    if (from == gap.end()) return;
    at = std::find_if_not(from, gap.end(), holds);
    parts.push_back({address + static_cast<std::uint64_t>(from - gap.begin()), {from, at}});
  }
}

std::vector<AddressedBytes> partsOf(Bytes image, const FileLayout& layout) {
  std::vector<AddressedBytes> parts;
  std::uint64_t at = layout.base;
  const auto within = [&](std::uint64_t from, std::uint64_t to) {
    return image.subspan(static_cast<std::size_t>(from - layout.base),
                         static_cast<std::size_t>(to - from));
  };
  for (const AddressRange& gap : layout.gaps) {
    if (gap.from > at) parts.push_back({at, within(at, gap.from)});
    addFilled(parts, within(gap.from, gap.to), gap.from);
    at = gap.to;
  }
  const std::uint64_t end = layout.base + image.size();
  if (end > at) parts.push_back({at, within(at, end)});
  return parts;
}

// An image without gaps from address 0 on is written as the program always does.
std::string textOf(Bytes image, const FileLayout& layout) {
  const auto parts = partsOf(image, layout);
  if (layout.form == ImageFileForm::sRecords) return sRecordText(parts);
  const bool plain = layout.base == 0 && layout.gaps.empty();
  return plain ? intelHexText(image) : intelHexText(parts);
}

bool gives(Bytes file, Bytes image, std::uint32_t base) {
  try {
    return std::ranges::equal(bytesFrom(readImageContent(file), base), image);
  } catch (const ImageFault&) {
    return false;
  }
}

}  // namespace

FileLayout layoutOf(const ImageContent& content, std::uint32_t base) {
  FileLayout layout{content.form, base, {}};
  if (base < content.base) layout.gaps.push_back({base, content.base});
  layout.gaps.insert(layout.gaps.end(), content.gaps.begin(), content.gaps.end());
  return layout;
}

std::optional<std::vector<std::uint8_t>> fileOf(Bytes image, const FileLayout& layout) {
  if (layout.form == ImageFileForm::raw) return std::vector(image.begin(), image.end());
  const std::string text = textOf(image, layout);
  std::vector<std::uint8_t> file(text.begin(), text.end());
  if (!gives(file, image, layout.base)) return std::nullopt;
  return file;
}
