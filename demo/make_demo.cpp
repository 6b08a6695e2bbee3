// Writes the made-up car into a folder: two address maps, the image, vqmap/ with nine airflow
// tables, and the zelkova.ini that the program is delivered with. Usage: make_demo FOLDER
#include <cstdint>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <span>
#include <stdexcept>
#include <vector>

#include "address_map_text.h"
#include "airflow_curve.h"
#include "demo_car.h"
#include "first_settings.h"

namespace {

namespace fs = std::filesystem;

void writeBytes(const fs::path& path, std::span<const char> bytes) {
  std::ofstream file(path, std::ios::binary);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  file.close();
  if (!file) throw std::runtime_error("can't write " + path.string());
}

void writeBytes(const fs::path& path, const std::vector<std::uint8_t>& bytes) {
  writeBytes(path, std::span(reinterpret_cast<const char*>(bytes.data()), bytes.size()));
}

void writeAll(const fs::path& folder) {
  fs::create_directories(folder / "vqmap");
  writeBytes(folder / "zelkova.ini", firstSettings());
  writeBytes(folder / "demo_ja.adr", japaneseAddressMap());
  writeBytes(folder / "demo_en.adr", englishAddressMap());
  writeBytes(folder / "demo.bin", demoImage());
  for (const auto& table : airflowTables()) {
    writeBytes(folder / "vqmap" / table.fileName, airflowBytes(table.curve));
  }
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 2) {
    std::cerr << "usage: make_demo FOLDER\n";
    return 2;
  }
  try {
    writeAll(arguments[1]);
  } catch (const std::exception& problem) {
    std::cerr << "make_demo: " << problem.what() << '\n';
    return 1;
  }
  return 0;
}
