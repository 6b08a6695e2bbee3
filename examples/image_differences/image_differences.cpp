// Tells what differs between two images of one car model, cell by cell, in the numbers that the
// editor shows. Usage: image_differences MAP.adr FORMER NOW; images come in any form.
#include <cstdint>
#include <cstdio>
#include <exception>
#include <stdexcept>
#include <string>
#include <vector>

#include "platform/files.h"
#include "platform/text_encoding.h"
#include "rom/address_check.h"
#include "rom/image_differences.h"
#include "rom/image_reading.h"
#include "rom/map_traits.h"
#include "rom/map_values.h"

namespace {

std::vector<std::uint8_t> readImage(const std::string& path) {
  try {
    const ImageContent content = readImageContent(readFile(path));
    return bytesFrom(content, usualBase(content));
  } catch (const ImageFault& fault) {
    throw std::runtime_error(path + ":" + std::to_string(fault.line()) + ": " + fault.what());
  }
}

AddressMap readMap(const std::string& path) {
  const auto bytes = readFile(path);
  const std::string text = decodeText({reinterpret_cast<const char*>(bytes.data()), bytes.size()});
  const CheckedAddressMap checked = checkAddressMap(text);
  for (const AddressProblem& each : checked.problems) {
    if (each.stopsReading) throw std::runtime_error(path + ": " + each.what);
  }
  return checked.map;
}

void tellMap(const ComparedImages& images, MapId id) {
  const MapShape shape = shapeOf(images.map, id);
  forEachDifferentCell(images, id, allCells, [&](std::int64_t cell, std::int64_t address) {
    const auto shown = [&](ImageView image) {
      return shownNumber(images.map, id, storedIn(image, shape.cellBytes, address));
    };
    std::printf("%s row %d, column %d: %d, was %d\n", traitsOf(id).keyword,
                static_cast<int>(cell / shape.columns) + 1,
                static_cast<int>(cell % shape.columns) + 1, shown(images.now),
                shown(images.former));
  });
}

void tell(const ComparedImages& images, const ImageDifference& each) {
  if (each.map) {
    tellMap(images, *each.map);
  } else if (each.param) {
    std::printf("%s: %s, was %s\n", traitsOf(*each.param).keyword,
                paramText(images.map, *each.param, images.now).value_or("?").c_str(),
                paramText(images.map, *each.param, images.former).value_or("?").c_str());
  } else {
    std::printf("%lld bytes from %04llX to %04llX, which the address map doesn't name\n",
                static_cast<long long>(each.count), static_cast<unsigned long long>(each.from),
                static_cast<unsigned long long>(each.to));
  }
}

}  // namespace

int main(int count, char** arguments) try {
  if (count != 4) throw std::runtime_error("Usage: image_differences MAP.adr FORMER NOW");
  const AddressMap map = readMap(arguments[1]);
  const auto former = readImage(arguments[2]), now = readImage(arguments[3]);
  const ComparedImages images{map, former, now};
  for (const ImageDifference& each : imageDifferences(images)) tell(images, each);
  return 0;
} catch (const std::exception& error) {
  std::fprintf(stderr, "%s\n", error.what());
  return 1;
}
