#include "graphs/tp_picture.h"

#include <algorithm>

#include "platform/numbers.h"

namespace {

constexpr std::int64_t zeroLine = 300;  // the y of TP 0
constexpr std::int64_t unit = 2;        // pixels
constexpr std::int32_t lowestPoint = 510;

}  // namespace

std::int32_t tpPointY(std::int32_t tp) { return clampTo32Bits(zeroLine - unit * tp); }

double tpOfPointY(std::int32_t y) {
  return static_cast<double>(zeroLine - y) / static_cast<double>(unit);
}

std::int32_t raisedTpPoint(std::int32_t y) {
  const std::int32_t raisedY = clampTo32Bits(y - unit);
  return raisedY < 1 ? 0 : raisedY;
}

std::int32_t loweredTpPoint(std::int32_t y) {
  return static_cast<std::int32_t>(std::min<std::int64_t>(y + unit, lowestPoint));
}
