#include "generators.h"

#include <algorithm>
#include <cstdio>

#include "core/map_kinds.h"

namespace {

struct Shape {
  int columns = 1;
  int rows = 1;
  int bytes = 1;   // as the file tells it
  int length = 1;  // bytes that the entry takes in the image
  std::string scale = "0";
};

template <class Choices>
const auto& oneOf(Random& random, const Choices& choices) {
  return choices[static_cast<std::size_t>(
      randomNumber(random, 0, static_cast<int>(std::size(choices)) - 1))];
}

bool chance(Random& random, int percent) { return randomNumber(random, 1, 100) <= percent; }

Shape mapShape(Random& random, MapFamily family, int imageBytes) {
  Shape shape;
  shape.columns = randomNumber(random, 1, 16);
  shape.length = shape.columns;
  switch (family) {
    case MapFamily::airflow:
      shape.bytes = randomNumber(random, 1, std::min(130, imageBytes));
      shape.length = shape.bytes;
      return shape;
    case MapFamily::rpmScale:
      shape.scale = oneOf(random, std::vector<const char*>{"1", "12", "25", "50", "&H64", "-50"});
      shape.rows = randomNumber(random, 0, 99);
      break;
    case MapFamily::tpScale:
      break;
    default:
      if (family == MapFamily::additional) shape.scale = std::to_string(randomNumber(random, 1, 7));
      shape.rows = randomNumber(random, 1, std::min(17, imageBytes / shape.columns));
      shape.length = shape.columns * shape.rows;
  }
  shape.bytes = chance(random, 80) ? shape.length : randomNumber(random, 1, 70000);
  return shape;
}

Shape paramShape(Random& random, bool scaled) {
  Shape shape;
  shape.length = shape.bytes = randomNumber(random, 1, scaled ? 4 : 9);
  shape.scale = oneOf(random, std::vector<const char*>{"1", "1", "2", "7", "100", "12.5", "0.3",
                                                       "0.5", "3.7", "-4"});
  return shape;
}

std::string addressText(int address, bool hexadecimal) {
  char text[16];
  std::snprintf(text, sizeof text, hexadecimal ? "&H%X" : "%d", static_cast<unsigned>(address));
  return text;
}

std::string block(Random& random, const char* keyword, const Shape& shape, int imageBytes) {
  const int highest = imageBytes - shape.length;
  const int address = chance(random, 20) ? highest : randomNumber(random, 0, highest);
  const char* const end = chance(random, 50) ? "\r\n" : ",";
  return keyword + std::string(end) + addressText(address, chance(random, 50)) + end +
         std::to_string(shape.columns) + end + std::to_string(shape.rows) + end +
         std::to_string(shape.bytes) + end + shape.scale + end + "about " + keyword + "\r\n";
}

}  // namespace

int randomNumber(Random& random, int low, int high) {
  return low + static_cast<int>(random() % static_cast<std::uint32_t>(high - low + 1));
}

std::vector<std::uint8_t> randomImage(Random& random) {
  std::vector<std::uint8_t> bytes(static_cast<std::size_t>(randomNumber(random, 40, 1500)));
  for (std::uint8_t& byte : bytes) {
    byte = static_cast<std::uint8_t>(chance(random, 10) ? oneOf(random, std::vector{0, 1, 128, 255})
                                                        : randomNumber(random, 0, 255));
  }
  bytes[0] = 1;
  return bytes;
}

std::string randomAddressMap(Random& random, std::size_t imageBytes) {
  const int size = static_cast<int>(imageBytes);
  std::vector<std::string> blocks;
  for (const MapKind& kind : mapKinds()) {
    if (chance(random, 30)) continue;
    blocks.push_back(block(random, kind.keyword, mapShape(random, kind.family, size), size));
  }
  for (const ParamKind& kind : paramKinds()) {
    if (chance(random, 30)) continue;
    blocks.push_back(block(random, kind.keyword, paramShape(random, kind.scaled()), size));
  }
  for (std::size_t i = blocks.size(); i > 1; --i) {
    std::swap(blocks[i - 1],
              blocks[static_cast<std::size_t>(randomNumber(random, 0, static_cast<int>(i) - 1))]);
  }
  std::string text = "# made up, ignored\r\nTYPE_UNIT\r\nRandom car\r\n";
  for (const std::string& each : blocks) text += (chance(random, 30) ? "#\r\n" : "") + each;
  return text;
}
