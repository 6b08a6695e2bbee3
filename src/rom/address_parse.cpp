#include "rom/address_parse.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <functional>
#include <limits>
#include <string_view>
#include <utility>

#include "platform/failure.h"
#include "platform/numbers.h"
#include "rom/map_traits.h"

namespace {

// The order in which keywords are looked for; a failing value leaves the later ones absent.
constexpr std::array earlyMaps{HIGH_FUEL,     HIGH_FIRE,     REG_FUEL,       REG_FIRE,      VQ_MAP,
                               TP_SCALE_FUEL, TP_SCALE_FIRE, RPM_SCALE_FUEL, RPM_SCALE_FIRE};
constexpr std::array paramOrder{K_DATA,       ADD_BYTE1,    ADD_BYTE2,  ADD_BYTE3,    REV1_LIMIT,
                                REV2_LIMIT,   REV3_LIMIT,   REV4_LIMIT, SPEED1_LIMIT, SPEED2_LIMIT,
                                SPEED3_LIMIT, SPEED4_LIMIT, IGN_TIME,   FB_SWITCH};
constexpr std::array lateMaps{TTP_MAX,  TTP_MIN,  ADD_FUEL, AF_LIMIT, ADD_MAP1, ADD_MAP2,
                              ADD_MAP3, ADD_MAP4, ADD_MAP5, ADD_MAP6, ADD_MAP7, ADD_MAP8};

// The value lines behind one keyword.
class Block {
 public:
  Block(std::span<const std::string> lines, std::size_t keyword)
      : lines_(lines), keyword_(keyword) {}

  const std::string& text(std::size_t line) const {
    if (keyword_ + line >= lines_.size()) throw Failure(badSubscript);
    return lines_[keyword_ + line];
  }
  std::int32_t wholeNumber(std::size_t line) const { return parseLong(text(line)); }
  float realNumber(std::size_t line) const {
    const double number = parseScale(text(line));
    if (std::abs(number) > std::numeric_limits<float>::max()) throw Failure(overflow);
    return static_cast<float>(number);
  }

 private:
  std::span<const std::string> lines_;
  std::size_t keyword_;
};

void checkGrid(std::int64_t dataRows, std::int64_t dataColumns) {
  if (dataColumns < 0 || dataRows < 0) throw Failure(badSubscript);
  if ((dataColumns + 1) * (dataRows + 1) > maximumMapCells) throw Failure(badSubscript);
}

// What both kinds of entries have in common; `readScale` stands where the scale is read.
template <class Entry, class ReadScale>
EntryLook readEntry(const Block& block, Entry& entry, ReadScale readScale) {
  entry.address = block.wholeNumber(1);
  entry.columns = block.wholeNumber(2);
  entry.rows = block.wholeNumber(3);
  entry.bytes = block.wholeNumber(4);
  readScale();
  entry.caption = block.text(6);
  return {entry.caption, entry.caption + " " + block.text(1) + ":" + block.text(4) + "byte", 0, 0,
          entry.bytes};
}

EntryLook readMap(const Block& block, const MapTraits& kind, MapEntry& entry) {
  EntryLook look = readEntry(block, entry, [&] {
    if (kind.scaled()) entry.scale = block.wholeNumber(5);
  });
  if (kind.isScale()) return look;
  const bool airflow = kind.family == MapFamily::airflow;
  const std::int32_t dataRows = airflow ? 1 : entry.rows;
  const std::int32_t dataColumns = airflow ? entry.bytes / 2 : entry.columns;
  checkGrid(dataRows, dataColumns);
  look.rows = dataRows + 1;
  look.columns = dataColumns + 1;
  return look;
}

EntryLook readParam(const Block& block, const ParamTraits& kind, ParamEntry& entry) {
  return readEntry(block, entry, [&] {
    if (kind.scaled()) entry.scale = block.realNumber(5);
  });
}

class Parse {
 public:
  Parse(std::span<const std::string> lines, std::size_t count, ParsedAddressMap& parsed)
      : lines_(lines), count_(std::min(count, lines.size())), parsed_(parsed) {}

  void run() const {
    forEachBlock("TYPE_UNIT", [&](const Block& block) { parsed_.map.typeUnit = block.text(1); });
    readMaps(earlyMaps);
    readParams();
    readMaps(lateMaps);
  }

 private:
  // Each occurrence in turn, so that the last one stands.
  void forEachBlock(std::string_view keyword, const std::function<void(const Block&)>& read) const {
    for (std::size_t i = 0; i < count_; ++i) {
      if (lines_[i] == keyword) read(Block(lines_, i));
    }
  }

  template <class Order>
  void readMaps(const Order& order) const {
    for (const MapId id : order) {
      const MapTraits& kind = traitsOf(id);
      forEachBlock(kind.keyword, [&](const Block& block) {
        EntryLook look = readMap(block, kind, parsed_.map.map(id));
        parsed_.maps[static_cast<std::size_t>(id - 1)].push_back(std::move(look));
      });
    }
  }

  void readParams() const {
    for (const ParamId id : paramOrder) {
      const auto index = static_cast<std::size_t>(id);
      const ParamTraits& kind = traitsOf(id);
      forEachBlock(kind.keyword, [&](const Block& block) {
        parsed_.params[index].push_back(readParam(block, kind, parsed_.map.param(id)));
      });
    }
  }

  std::span<const std::string> lines_;
  std::size_t count_;
  ParsedAddressMap& parsed_;
};

}  // namespace

ParsedAddressMap parseAddressMap(std::span<const std::string> lines, std::size_t count,
                                 const AddressMap& former) {
  ParsedAddressMap parsed{former, {}, {}, 0};
  parsed.map.typeUnit.clear();
  for (MapEntry& entry : parsed.map.maps) entry.bytes = 0;
  for (ParamEntry& entry : parsed.map.params) entry.bytes = 0;
  parsed.failure = trapFailure([&] { Parse(lines, count, parsed).run(); });
  return parsed;
}
