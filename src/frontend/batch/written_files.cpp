#include "frontend/batch/written_files.h"

#include <nlohmann/json.hpp>

ImageFileForm formOf(const Arguments& arguments, const std::string& output,
                     std::optional<ImageFileForm> own) {
  const bool said = !arguments.form.empty();
  if (const auto form = formNamed(said ? arguments.form : output)) return *form;
  if (said) throw Trouble(arguments.form + ": the forms are raw, hex and srec");
  if (own) return *own;
  throw Trouble(output + ": no form is known by this name; say --to raw, hex or srec");
}

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
