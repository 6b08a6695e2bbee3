#include "rom/cell_arithmetic.h"

std::int32_t changedByPercentage(std::int32_t number, Percentage by, bool atLeastOneUnit,
                                 const StorableNumbers& storable) {
  if (by == 0 || number == 0) return number;
  constexpr std::int64_t whole = std::int64_t{100} * wholePercent;
  const std::int32_t changed =
      storable.nearestTo(static_cast<double>(number * (whole + by)), static_cast<double>(whole));
  const bool up = (by > 0) == (number > 0);
  if (!atLeastOneUnit || (up ? changed > number : changed < number)) return changed;
  return storable.nearestTo(static_cast<double>(number) + (up ? 1.0 : -1.0) * storable.unit);
}

std::int32_t betweenCorners(const Corners& corners, const Way& right, const Way& down,
                            const StorableNumbers& storable) {
  const auto width = static_cast<double>(right.whole), height = static_cast<double>(down.whole);
  const auto x = static_cast<double>(right.part), y = static_cast<double>(down.part);
  const double top = corners.topLeft * (width - x) + corners.topRight * x;
  const double bottom = corners.bottomLeft * (width - x) + corners.bottomRight * x;
  return storable.nearestTo(top * (height - y) + bottom * y, width * height);
}
