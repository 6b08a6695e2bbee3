#include <nlohmann/json.hpp>

#include "frontend/batch/batch_commands.h"
#include "frontend/batch/many_files.h"
#include "rom/address_check.h"

namespace {

using Json = nlohmann::ordered_json;

Json jsonOf(const std::string& file, const std::vector<AddressProblem>& problems) {
  Json list = Json::array();
  for (const AddressProblem& each : problems) {
    list.push_back({{"line", each.line}, {"what", each.what}, {"stops", each.stopsReading}});
  }
  return {{"file", file}, {"problems", std::move(list)}};
}

std::string inWords(const std::string& file, const std::vector<AddressProblem>& problems) {
  std::string text;
  for (const AddressProblem& each : problems) {
    text += file + (each.line > 0 ? ":" + std::to_string(each.line) : "") + ": " + each.what + "\n";
  }
  return text;
}

}  // namespace

int check(const Arguments& arguments) {
  const std::string text = readAddressText(arguments.map);
  const bool json = arguments.format == Format::json;
  const std::size_t count = std::max<std::size_t>(arguments.images.size(), 1);
  auto results = forEachFile(count, [&](std::size_t i) {
    std::vector<AddressProblem> problems;
    std::string name = arguments.map;
    if (arguments.images.empty()) {
      problems = checkAddressMap(text).problems;
    } else {
      const ImageFile file = readImage(arguments.images[i], arguments.base);
      problems = checkAddressMap(text, file.image).problems;
      if (count > 1) name = file.path + ": " + name;
    }
    return FileResult{json ? jsonOf(name, problems).dump(2) : inWords(name, problems), "",
                      problems.empty() ? fine : different};
  });
  if (json) joinAsJson(results);
  return tellResults(results);
}
