#include <algorithm>
#include <nlohmann/json.hpp>

#include "frontend/batch/batch_commands.h"
#include "frontend/batch/many_files.h"
#include "platform/failure.h"
#include "platform/numbers.h"
#include "rom/image_differences.h"
#include "rom/map_traits.h"

namespace {

using Json = nlohmann::ordered_json;

constexpr const char* outside = "outside";

std::string keywordOf(const ImageDifference& each) {
  if (each.map) return traitsOf(*each.map).keyword;
  return each.param ? traitsOf(*each.param).keyword : outside;
}

// "" for a stretch outside the address map and where the map tells none.
std::string captionOf(const AddressMap& map, const ImageDifference& each) {
  if (each.map) return map.map(*each.map).caption;
  return each.param ? map.param(*each.param).caption : std::string();
}

std::string signedText(std::int64_t change) {
  return change == 0 ? "" : (change > 0 ? "+" : "") + std::to_string(change);
}

Json jsonOf(const AddressMap& map, const ImageDifference& each) {
  return {{"entry", keywordOf(each)},
          {"caption", captionOf(map, each)},
          {"count", each.count},
          {"up", each.up},
          {"down", each.down},
          {"from", each.from},
          {"to", each.to}};
}

Row rowOf(const AddressMap& map, const ImageDifference& each) {
  return {keywordOf(each),
          std::to_string(each.count),
          signedText(each.up),
          signedText(each.down),
          hexDigits(each.from, 2) + "-" + hexDigits(each.to, 2),
          captionOf(map, each)};
}

std::string told(const AddressMap& map, const std::string& former, const ImageFile& now,
                 std::size_t formerBytes, const std::vector<ImageDifference>& list, Format format) {
  if (format == Format::json) {
    Json entries = Json::array();
    for (const ImageDifference& each : list) entries.push_back(jsonOf(map, each));
    return Json{{"former", former},
                {"formerBytes", formerBytes},
                {"now", now.path},
                {"nowBytes", now.image.size()},
                {"differences", std::move(entries)}}
        .dump(2);
  }
  std::vector<Row> rows;
  if (!list.empty()) rows.push_back({"entry", "count", "up", "down", "addresses", "caption"});
  for (const ImageDifference& each : list) rows.push_back(rowOf(map, each));
  return tabled(rows, format, false);
}

}  // namespace

int diff(const Arguments& arguments) {
  const AddressMap map = arguments.map.empty() ? AddressMap{} : readAddressMap(arguments.map);
  const std::string& former = arguments.images.front();
  const ImageFile reference = readImage(former, arguments.base);
  const bool json = arguments.format == Format::json;
  const std::size_t others = arguments.images.size() - 1;
  auto results = forEachFile(others, [&](std::size_t i) {
    const ImageFile now = readImage(arguments.images[i + 1], arguments.base);
    std::vector<ImageDifference> list;
    const int number = trapFailure([&] {
      list = imageDifferences({map, reference.image, now.image});
    });
    if (number != 0) throw Trouble(now.path + ": " + failureText(number));
    const bool longer = now.image.size() != reference.image.size();
    FileResult result{told(map, former, now, reference.image.size(), list, arguments.format), "",
                      list.empty() && !longer ? fine : different};
    if (longer && !json) {
      result.text += "sizes differ: " + std::to_string(reference.image.size()) + " and " +
                     std::to_string(now.image.size()) + " bytes\n";
    }
    if (others > 1 && !json && !result.text.empty()) result.text = now.path + "\n" + result.text;
    return result;
  });
  if (json) joinAsJson(results);
  return tellResults(results);
}
