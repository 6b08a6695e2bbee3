// What an address map holds: where each of 21 maps and scales and 14 single parameters of one car
// model lies in an image, its shape and its caption.
#pragma once

#include <array>
#include <cstdint>
#include <string>

// The number by which all code names a map. Commands that touch all maps walk them in this order.
enum MapId : int {
  HIGH_FUEL = 1,
  HIGH_FIRE,
  REG_FUEL,
  REG_FIRE,
  VQ_MAP,
  TP_SCALE_FUEL,
  TP_SCALE_FIRE,
  RPM_SCALE_FUEL,
  RPM_SCALE_FIRE,
  TTP_MAX,
  TTP_MIN,
  AF_LIMIT,
  ADD_FUEL,
  ADD_MAP1,
  ADD_MAP2,
  ADD_MAP3,
  ADD_MAP4,
  ADD_MAP5,
  ADD_MAP6,
  ADD_MAP7,
  ADD_MAP8,
};
constexpr int mapCount = 21;

// In the order in which parameters are shown and written back: six of hexadecimal bytes, then eight
// scaled numbers.
enum ParamId : int {
  K_DATA,
  IGN_TIME,
  FB_SWITCH,
  ADD_BYTE1,
  ADD_BYTE2,
  ADD_BYTE3,
  REV1_LIMIT,
  REV2_LIMIT,
  REV3_LIMIT,
  REV4_LIMIT,
  SPEED1_LIMIT,
  SPEED2_LIMIT,
  SPEED3_LIMIT,
  SPEED4_LIMIT,
};
constexpr int paramCount = 14;

// An entry exists on the model when its `bytes` is greater than 0. The other fields of an absent
// entry may be left over from an earlier map: `columns` and `rows` are read through `columnsOf` and
// `rowsOf`, which count an absent entry as empty.
struct MapEntry {
  std::int32_t address = 0;  // byte offset in the image
  std::int32_t columns = 0;
  std::int32_t rows = 0;
  std::int32_t bytes = 0;
  std::int32_t scale = 0;  // shown = byte times scale, for RPM scales and additional maps
  std::string caption;
  bool present() const { return bytes > 0; }
};

struct ParamEntry {
  std::int32_t address = 0;
  std::int32_t columns = 0;  // stored, not used
  std::int32_t rows = 0;     // stored, not used
  std::int32_t bytes = 0;
  float scale = 0;  // shown = stored number times scale, for the limits
  std::string caption;
  bool present() const { return bytes > 0; }
};

struct AddressMap {
  std::string typeUnit;  // the model's name; "": no address map is loaded
  std::array<MapEntry, mapCount> maps;
  std::array<ParamEntry, paramCount> params;

  MapEntry& map(int mapId) { return maps.at(static_cast<std::size_t>(mapId - 1)); }
  const MapEntry& map(int mapId) const { return maps.at(static_cast<std::size_t>(mapId - 1)); }
  ParamEntry& param(int id) { return params.at(static_cast<std::size_t>(id)); }
  const ParamEntry& param(int id) const { return params.at(static_cast<std::size_t>(id)); }
};

inline int columnsOf(const MapEntry& entry) { return entry.present() ? entry.columns : 0; }
inline int rowsOf(const MapEntry& entry) { return entry.present() ? entry.rows : 0; }
