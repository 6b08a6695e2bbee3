#include "frontend/batch/written_files.h"

#include <nlohmann/json.hpp>

void requireRoomForJson(const Arguments& arguments, const std::string& to) {
  if (arguments.format != Format::json || to != "-") return;
  throw Trouble("--json tells on standard output: name a file for the result");
}

FileResult tellOf(const Arguments& arguments, const WrittenFile& file) {
  if (arguments.format != Format::json) return {};
  const nlohmann::ordered_json value{
      {"file", file.to}, {"form", file.form}, {"size", file.size}, {"from", file.from}};
  return {value.dump(2), "", fine};
}

int tellWritten(const Arguments& arguments, std::vector<FileResult> results) {
  if (arguments.format == Format::json) joinAsJson(results);
  return tellResults(results);
}
