#include <algorithm>
#include <cstdio>
#include <nlohmann/json.hpp>

#include "frontend/batch/batch_commands.h"
#include "platform/failure.h"
#include "platform/numbers.h"
#include "rom/map_traits.h"
#include "rom/map_values.h"

namespace {

using Json = nlohmann::ordered_json;

// An image under an address map.
struct Car {
  const AddressMap& map;
  const Bytes& image;
  bool hex;

  std::string text(MapId id, std::int64_t cell) const {
    const MapShape shape = shapeOf(map, id);
    const int stored = storedIn(image, shape.cellBytes, shape.addressOf(cell));
    return hex ? hexDigits(stored, shape.cellBytes) : decimalText(shownNumber(map, id, stored));
  }
  // What stands beside the cells; "" where no scale tells.
  std::string scaleText(MapId scale, int place) const {
    if (scale == noMap || place >= shapeOf(map, scale).count()) return {};
    return text(scale, place);
  }
};

Row headerOf(const Car& car, const MapTraits& traits, const MapShape& shape) {
  Row row{""};
  for (int column = 0; column < shape.columns; ++column) {
    const std::string load = car.scaleText(traits.loadScale, column);
    row.push_back(load.empty() ? "+" + hexText(static_cast<std::uint32_t>(column)) : load);
  }
  return row;
}

// With the scales before the rows and above the columns; places without one are told by offset and
// address.
std::vector<Row> rowsOf(const Car& car, MapId id) {
  const MapTraits& traits = traitsOf(id);
  const MapShape shape = shapeOf(car.map, id);
  std::vector<Row> rows{headerOf(car, traits, shape)};
  for (int r = 0; r < shape.rows; ++r) {
    const std::string speed = car.scaleText(traits.speedScale, r);
    const std::int64_t first = std::int64_t{r} * shape.columns;
    Row row{speed.empty() ? hexDigits(shape.addressOf(first), 2) : speed};
    for (int c = 0; c < shape.columns; ++c) row.push_back(car.text(id, first + c));
    rows.push_back(std::move(row));
  }
  return rows;
}

Json scaleOf(const Car& car, MapId scale) {
  if (scale == noMap || !car.map.map(scale).present()) return nullptr;
  Json values = Json::array();
  for (std::int64_t i = 0; i < shapeOf(car.map, scale).count(); ++i) {
    values.push_back(std::stoll(Car{car.map, car.image, false}.text(scale, i)));
  }
  return values;
}

Json jsonOf(const Car& car, MapId id) {
  const MapTraits& traits = traitsOf(id);
  const MapShape shape = shapeOf(car.map, id);
  Json rows = Json::array();
  for (int r = 0; r < shape.rows; ++r) {
    Json row = Json::array();
    for (int c = 0; c < shape.columns; ++c) {
      const std::string text = car.text(id, std::int64_t{r} * shape.columns + c);
      car.hex ? row.push_back(text) : row.push_back(std::stoll(text));
    }
    rows.push_back(std::move(row));
  }
  return {{"map", traits.keyword},
          {"caption", car.map.map(id).caption},
          {"address", shape.address},
          {"load", scaleOf(car, traits.loadScale)},
          {"speed", scaleOf(car, traits.speedScale)},
          {"cells", std::move(rows)}};
}

std::string paramLine(const Car& car, ParamId id) {
  return paramText(car.map, id, car.image).value_or("");
}

std::string titleOf(const AddressMap& map, MapId id) {
  const std::string& caption = map.map(id).caption;
  return traitsOf(id).keyword + (caption.empty() ? "" : "  " + caption);
}

std::string inTables(const Car& car, const NamedEntries& named, Format format) {
  std::string text;
  for (const MapId id : named.maps) {
    text += tabled({Row{titleOf(car.map, id)}}, format, false);
    text += tabled(rowsOf(car, id), format, true) + "\n";
  }
  std::vector<Row> rows;
  for (const ParamId id : named.params) {
    rows.push_back({traitsOf(id).keyword, paramLine(car, id), car.map.param(id).caption});
  }
  return text + tabled(rows, format, false);
}

Json inJson(const Car& car, const NamedEntries& named) {
  Json maps = Json::array();
  for (const MapId id : named.maps) maps.push_back(jsonOf(car, id));
  Json params = Json::array();
  for (const ParamId id : named.params) {
    params.push_back({{"parameter", traitsOf(id).keyword},
                      {"caption", car.map.param(id).caption},
                      {"address", car.map.param(id).address},
                      {"value", paramLine(car, id)}});
  }
  return {
      {"model", car.map.typeUnit}, {"maps", std::move(maps)}, {"parameters", std::move(params)}};
}

// What lies beyond the image's end is named, and the rest is shown.
int leaveOutBeyond(const Car& car, NamedEntries& named) {
  const auto size = std::ssize(car.image);
  const auto tell = [](const char* keyword) {
    std::fprintf(stderr, "zelkova-batch: %s lies beyond the image's end\n", keyword);
  };
  const auto mapBeyond = [&](MapId id) {
    const MapShape shape = shapeOf(car.map, id);
    const bool beyond = shape.address < 0 || shape.end() > size;
    if (beyond) tell(traitsOf(id).keyword);
    return beyond;
  };
  const auto paramBeyond = [&](ParamId id) {
    const ParamEntry& entry = car.map.param(id);
    const bool beyond = !holdsBytes(car.image, entry.address, entry.bytes);
    if (beyond) tell(traitsOf(id).keyword);
    return beyond;
  };
  const auto left = std::erase_if(named.maps, mapBeyond) + std::erase_if(named.params, paramBeyond);
  return left > 0 ? trouble : fine;
}

template <class Traits>
bool isNamed(const Traits& traits, const std::string& keyword) {
  return keyword == traits.keyword;
}

}  // namespace

NamedEntries entriesNamed(const AddressMap& map, const std::vector<std::string>& keywords) {
  NamedEntries named;
  if (keywords.empty()) {
    for (const MapTraits& each : mapTraits) {
      if (map.map(each.id).present()) named.maps.push_back(each.id);
    }
    for (const ParamTraits& each : paramTraits) {
      if (map.param(each.id).present()) named.params.push_back(each.id);
    }
  }
  for (const std::string& keyword : keywords) {
    const auto isIt = [&](const auto& traits) { return isNamed(traits, keyword); };
    const auto found = std::ranges::find_if(mapTraits, isIt);
    const auto param = std::ranges::find_if(paramTraits, isIt);
    if (found != mapTraits.end() && map.map(found->id).present()) {
      named.maps.push_back(found->id);
    } else if (param != paramTraits.end() && map.param(param->id).present()) {
      named.params.push_back(param->id);
    } else if (found == mapTraits.end() && param == paramTraits.end()) {
      throw Trouble(keyword + ": no map is called so; maps are named by their keywords, such as " +
                    mapTraits.front().keyword);
    } else {
      throw Trouble(keyword + ": the address map doesn't have it");
    }
  }
  return named;
}

int show(const Arguments& arguments) {
  const AddressMap map = readAddressMap(arguments.map);
  const ImageFile file = readImage(arguments.images.front(), arguments.base);
  const Car car{map, file.image, arguments.hex};
  NamedEntries named = entriesNamed(map, arguments.maps);
  const int code = leaveOutBeyond(car, named);
  try {
    const std::string text = arguments.format == Format::json
                                 ? jsonText(inJson(car, named))
                                 : inTables(car, named, arguments.format);
    writeWhole(arguments.output, text, arguments.whenThere);
  } catch (const Failure& failure) {
    throw Trouble(arguments.map + ": " + failureText(failure.number()));
  }
  return code;
}
