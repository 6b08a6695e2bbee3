// The commands of the command line. Each gives its exit code; Trouble ends it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "frontend/batch/batch_files.h"
#include "frontend/batch/batch_results.h"

enum ExitCode : int { fine = 0, different = 1, trouble = 2 };

struct Arguments {
  std::vector<std::string> images;
  std::string map;  // the address map's file; "": none
  std::vector<std::string> maps;
  std::string script;
  std::string output = "-";
  std::string folder;  // for the results of many files
  std::string form;
  Format format = Format::table;
  bool hex = false;
  bool japanese = false;  // captions
  WhenThere whenThere = WhenThere::refuse;
  std::optional<std::uint32_t> base;
  int kbit = 0;  // of both halves of a pair together; 0: the image's own size
};

int info(const Arguments& arguments);
int show(const Arguments& arguments);
int diff(const Arguments& arguments);
int check(const Arguments& arguments);
int convert(const Arguments& arguments);
int split(const Arguments& arguments);
int join(const Arguments& arguments);
int apply(const Arguments& arguments);
int take(const Arguments& arguments);
int report(const Arguments& arguments);

// The maps that keywords name, in their order; all that the model has for none. An unknown keyword
// and a map that the model lacks are trouble.
struct NamedEntries {
  std::vector<MapId> maps;
  std::vector<ParamId> params;
};
NamedEntries entriesNamed(const AddressMap& map, const std::vector<std::string>& keywords);
