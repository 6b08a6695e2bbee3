#include "first_settings.h"

#include <array>

namespace {

constexpr std::array lines{
    "Version 1.98.48E",
    "demo/demo_en.adr",
    " 1998 ",  // displacement, cc
    " 370 ",   // injector size, cc
    " 4 ",     // cylinders
    "demo",    // folder of address maps
    "demo",    // folder of images
    " 128 ",   // feedback mask of the 3D graph
    " 125 ",   // feedback threshold of the 3D graph
    " 1 ",     // magnification of the 3D graph
    "+",       // key that increases
    "-",       // key that decreases
    " 4096 ",  // address editor: start
    " 16 ",    // address editor: columns
    " 16 ",    // address editor: rows
    " 1 ",     // grid colour rate
    " 1 ",     // English
    "256",     // ROM size of odd/even pairs, Kbit
    "BINARY",  // format of odd/even pairs
    "TRAN",    // the version window plays its sound
    " 0 ",     // comparison surface off
    " 23 ",    // 3D graph: steps along X
    " 14 ",    // 3D graph: steps along Y
    " 1 ",     // 3D graph: inclination along X
    " 2 ",     // 3D graph: inclination along Y
};
static_assert(lines.size() == 25);

}  // namespace

std::string firstSettings() {
  std::string text;
  for (const char* line : lines) text += std::string(line) + "\r\n";
  return text;
}
