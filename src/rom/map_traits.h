// What is known of each map and parameter before any address map is read: its keyword in address
// map files, what kind of numbers it holds, and which scales tell what its columns and rows stand
// for.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "rom/map_entries.h"

// What kinds of cells a map has.
enum class MapFamily { main, airflow, tpScale, rpmScale, limitRow, additional };

constexpr std::int32_t byteLimit = 255;
constexpr std::int32_t wordLimit = 65535;
constexpr MapId noMap{};

// The most cells, headers included, that a map may have.
constexpr std::int64_t maximumMapCells = 1'048'576;

struct MapTraits {
  MapId id;
  const char* keyword;
  MapFamily family;
  MapId loadScale = noMap;
  MapId speedScale = noMap;

  // Shown: the byte times the file's scale.
  constexpr bool scaled() const {
    return family == MapFamily::rpmScale || family == MapFamily::additional;
  }
  // In the image, the high byte first.
  constexpr int cellBytes() const { return family == MapFamily::airflow ? 2 : 1; }
  constexpr bool isScale() const {
    return family == MapFamily::tpScale || family == MapFamily::rpmScale;
  }
};

// In the order of MapId.
constexpr std::array<MapTraits, mapCount> mapTraits{{
    {HIGH_FUEL, "HIGH_FUEL", MapFamily::main, TP_SCALE_FUEL, RPM_SCALE_FUEL},
    {HIGH_FIRE, "HIGH_FIRE", MapFamily::main, TP_SCALE_FIRE, RPM_SCALE_FIRE},
    {REG_FUEL, "REG_FUEL", MapFamily::main, TP_SCALE_FUEL, RPM_SCALE_FUEL},
    {REG_FIRE, "REG_FIRE", MapFamily::main, TP_SCALE_FIRE, RPM_SCALE_FIRE},
    {VQ_MAP, "VQ_MAP", MapFamily::airflow},
    {TP_SCALE_FUEL, "TP_SCALE_FUEL", MapFamily::tpScale},
    {TP_SCALE_FIRE, "TP_SCALE_FIRE", MapFamily::tpScale},
    {RPM_SCALE_FUEL, "RPM_SCALE_FUEL", MapFamily::rpmScale},
    {RPM_SCALE_FIRE, "RPM_SCALE_FIRE", MapFamily::rpmScale},
    {TTP_MAX, "TTP_MAX", MapFamily::limitRow},
    {TTP_MIN, "TTP_MIN", MapFamily::limitRow},
    {AF_LIMIT, "AF_LIMIT", MapFamily::limitRow},
    {ADD_FUEL, "ADD_FUEL", MapFamily::limitRow},
    {ADD_MAP1, "ADD_MAP1", MapFamily::additional},
    {ADD_MAP2, "ADD_MAP2", MapFamily::additional},
    {ADD_MAP3, "ADD_MAP3", MapFamily::additional},
    {ADD_MAP4, "ADD_MAP4", MapFamily::additional},
    {ADD_MAP5, "ADD_MAP5", MapFamily::additional},
    {ADD_MAP6, "ADD_MAP6", MapFamily::additional},
    {ADD_MAP7, "ADD_MAP7", MapFamily::additional},
    {ADD_MAP8, "ADD_MAP8", MapFamily::additional},
}};

constexpr const MapTraits& traitsOf(MapId id) {
  return mapTraits[static_cast<std::size_t>(id - 1)];
}

struct ParamTraits {
  ParamId id;
  const char* keyword;
  bool number;  // times the file's scale, else bytes in hexadecimal
  constexpr bool scaled() const { return number; }
};

// In the order of ParamId.
constexpr std::array<ParamTraits, paramCount> paramTraits{{
    {K_DATA, "K_DATA", false},
    {IGN_TIME, "IGN_TIME", false},
    {FB_SWITCH, "FB_SWITCH", false},
    {ADD_BYTE1, "ADD_BYTE1", false},
    {ADD_BYTE2, "ADD_BYTE2", false},
    {ADD_BYTE3, "ADD_BYTE3", false},
    {REV1_LIMIT, "REV1_LIMIT", true},
    {REV2_LIMIT, "REV2_LIMIT", true},
    {REV3_LIMIT, "REV3_LIMIT", true},
    {REV4_LIMIT, "REV4_LIMIT", true},
    {SPEED1_LIMIT, "SPEED1_LIMIT", true},
    {SPEED2_LIMIT, "SPEED2_LIMIT", true},
    {SPEED3_LIMIT, "SPEED3_LIMIT", true},
    {SPEED4_LIMIT, "SPEED4_LIMIT", true},
}};

constexpr const ParamTraits& traitsOf(ParamId id) {
  return paramTraits[static_cast<std::size_t>(id)];
}
