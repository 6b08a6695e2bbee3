// How results are told: for people as aligned tables, for programs as CSV or JSON.
#pragma once

#include <nlohmann/json_fwd.hpp>
#include <string>
#include <vector>

enum class Format { table, csv, json };

using Row = std::vector<std::string>;

// Columns under each other; numbers are put to the right where `numbers` says so.
std::string aligned(const std::vector<Row>& rows, bool numbers);
// Fields with commas, quotes or line ends stand in quotes.
std::string commaSeparated(const std::vector<Row>& rows);
// As `format`, which is not json, tells.
std::string tabled(const std::vector<Row>& rows, Format format, bool numbers);
std::string jsonText(const nlohmann::ordered_json& value);
