#include <gcrypt.h>

#include <array>
#include <nlohmann/json.hpp>
#include <numeric>

#include "frontend/batch/batch_commands.h"
#include "frontend/batch/many_files.h"
#include "platform/numbers.h"
#include "rom/map_traits.h"
#include "rom/map_values.h"

namespace {

using Json = nlohmann::ordered_json;

std::string digest(const Bytes& bytes, int algorithm) {
  std::array<std::uint8_t, 64> sum{};
  gcry_md_hash_buffer(algorithm, sum.data(), bytes.data(), bytes.size());
  std::string text;
  for (std::size_t i = 0; i < gcry_md_get_algo_dlen(algorithm); ++i) text += hexDigits(sum[i], 1);
  return text;
}

std::string hex(std::int64_t number) { return "&H" + hexDigits(number, 2); }

Json fit(const AddressMap& map, const Bytes& image) {
  Json beyond = Json::array();
  std::int64_t end = 0;
  const auto look = [&](const char* keyword, std::int64_t past) {
    end = std::max(end, past);
    if (past > std::ssize(image)) beyond.push_back(keyword);
  };
  int maps = 0;
  int params = 0;
  for (const MapTraits& each : mapTraits) {
    if (!map.map(each.id).present()) continue;
    ++maps;
    look(each.keyword, shapeOf(map, each.id).end());
  }
  for (const ParamTraits& each : paramTraits) {
    const ParamEntry& entry = map.param(each.id);
    if (!entry.present()) continue;
    ++params;
    look(each.keyword, std::int64_t{entry.address} + entry.bytes);
  }
  const bool fits = beyond.empty();
  return {{"model", map.typeUnit}, {"maps", maps},
          {"parameters", params},  {"end", end},
          {"fits", fits},          {"beyond", std::move(beyond)}};
}

Json infoOf(const ImageFile& file, const std::optional<AddressMap>& map) {
  const Bytes& image = file.image;
  Json gaps = Json::array();
  for (const AddressRange& gap : file.content.gaps) {
    gaps.push_back({{"from", gap.from}, {"to", gap.to - 1}});
  }
  Json value{{"file", file.path},
             {"form", nameOf(file.content.form)},
             {"size", image.size()},
             {"base", file.base},
             {"sum", std::accumulate(image.begin(), image.end(), std::uint64_t{0})},
             {"crc32", digest(image, GCRY_MD_CRC32)},
             {"sha256", digest(image, GCRY_MD_SHA256)},
             {"gaps", std::move(gaps)},
             {"overlapping", file.content.overlapping},
             {"complete", file.content.hasEnd}};
  if (map) value["map"] = fit(*map, image);
  return value;
}

std::string inWords(const Json& value) {
  std::vector<Row> rows{{"file", value["file"]},
                        {"form", value["form"]},
                        {"size", std::to_string(value["size"].get<std::uint64_t>()) +
                                     " bytes from " + hex(value["base"].get<std::int64_t>())},
                        {"sum", std::to_string(value["sum"].get<std::uint64_t>())},
                        {"crc32", value["crc32"]},
                        {"sha256", value["sha256"]}};
  for (const Json& gap : value["gaps"]) {
    rows.push_back({"gap", hex(gap["from"].get<std::int64_t>()) + " to " +
                               hex(gap["to"].get<std::int64_t>())});
  }
  if (value["overlapping"] != 0) {
    rows.push_back(
        {"overlapping", std::to_string(value["overlapping"].get<std::uint64_t>()) + " bytes"});
  }
  if (!value["complete"]) rows.push_back({"end", "missing: the file may be cut off"});
  if (value.contains("map")) {
    const Json& map = value["map"];
    rows.push_back({"model", map["model"]});
    rows.push_back({"map", std::to_string(map["maps"].get<int>()) + " maps and scales, " +
                               std::to_string(map["parameters"].get<int>()) + " parameters, " +
                               (map["fits"] ? "all inside" : "not all inside")});
    for (const Json& keyword : map["beyond"]) rows.push_back({"beyond the end", keyword});
  }
  return aligned(rows, false);
}

}  // namespace

int info(const Arguments& arguments) {
  gcry_check_version(nullptr);
  gcry_control(GCRYCTL_INITIALIZATION_FINISHED, 0);
  std::optional<AddressMap> map;
  if (!arguments.map.empty()) map = readAddressMap(arguments.map);
  const bool json = arguments.format == Format::json;
  auto results = forEachFile(arguments.images.size(), [&](std::size_t i) {
    const Json value = infoOf(readImage(arguments.images[i], arguments.base), map);
    return FileResult{json ? value.dump(2) : inWords(value), "", fine};
  });
  if (json) {
    joinAsJson(results);
  } else {
    for (std::size_t i = 1; i < results.size(); ++i) {
      if (!results[i].text.empty()) results[i].text = "\n" + results[i].text;
    }
  }
  return tellResults(results);
}
