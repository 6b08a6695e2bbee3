#include "demo_car.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

#include "airflow_curve.h"

namespace {

constexpr int feedbackBit = 128;
constexpr int feedbackAndLearningBits = 192;

std::uint8_t byteOf(double value) {
  return static_cast<std::uint8_t>(std::clamp(std::lround(value), 0L, 255L));
}

// Bell of height 1 around `centre`.
double bell(double x, double centre, double width) {
  const double distance = (x - centre) / width;
  return std::exp(-distance * distance);
}

// Rises from 0 to 1 around `centre`.
double ramp(double x, double centre, double width) {
  return 1 / (1 + std::exp((centre - x) / width));
}

// Enrichment over load (columns) and engine speed (rows): none while cruising, much under boost.
double enrichment(int column, int row, double full) {
  const double load = ramp(column, 9.5, 1.6);
  const double speed = 0.55 + 0.45 * ramp(row, 8, 2.5);
  const double idle = 8 * bell(column, 0, 2) * bell(row, 0, 2);
  return 4 + (full - 4) * load * speed + idle;
}

bool isCruising(int column, int row) { return column <= 6 && row >= 1 && row <= 9; }

std::uint8_t highFuel(int column, int row) {
  return byteOf(enrichment(column, row, 60) + (isCruising(column, row) ? feedbackBit : 0));
}

std::uint8_t regularFuel(int column, int row) {
  return byteOf(enrichment(column, row, 54) +
                (isCruising(column, row) ? feedbackAndLearningBits : 0));
}

// Degrees before top dead centre: more with engine speed, less with load.
double advance(int column, int row, double most) {
  const double speed = 16 + (most - 16) * ramp(row, 4, 2);
  const double underLoad = 0.62 * ramp(column, 10, 2.2);
  return std::clamp(speed * (1 - underLoad) - 4 * bell(column, 0, 1.5), 10.0, 50.0);
}

std::uint8_t highFire(int column, int row) { return byteOf(advance(column, row, 50)); }
std::uint8_t regularFire(int column, int row) { return byteOf(advance(column, row, 45)); }

std::uint8_t fuelLoad(int column, int) { return byteOf(8 + 7.5 * column); }
std::uint8_t fireLoad(int column, int) { return byteOf(8 + 5.2 * column + 0.15 * column * column); }

// In steps of 50 rpm: close together at idle, up to 8000.
std::uint8_t engineSpeed(int column, int) {
  return byteOf(12 + 6 * column + 0.258 * column * column);
}

std::uint8_t airflow(int column, int) {
  const auto bytes = airflowBytes({.words = 64, .low = 300, .high = 58000, .bend = 2.1});
  return bytes[static_cast<std::size_t>(column)];
}

std::uint8_t greatestLoad(int column, int) { return byteOf(150 - 40 * bell(column, 0, 5)); }
std::uint8_t leastLoad(int column, int) { return byteOf(6 + 8 * bell(column, 0, 6)); }
std::uint8_t mixtureLimit(int column, int) { return byteOf(120 - 9 * column); }
std::uint8_t addedFuel(int column, int) { return byteOf(40 * std::exp(-0.35 * column)); }

std::uint8_t coldStart(int column, int row) {
  return byteOf(90 * std::exp(-0.3 * column) + 3 * row);
}

std::uint8_t boostTarget(int column, int row) {
  return byteOf(20 + 80 * ramp(column, 7, 2) * ramp(row, 5, 2) - 18 * ramp(row, 13, 1));
}

std::uint8_t idleValve(int column, int) { return byteOf(180 - 8 * column); }
std::uint8_t warmUp(int column, int row) { return byteOf(60 - 4 * column + 9 * row); }
std::uint8_t knockRetard(int column, int row) { return byteOf(2 + column * row); }

std::uint8_t injectorConstant(int column, int) { return column == 0 ? 0x01 : 0x72; }
std::uint8_t ignitionTime(int, int) { return 0x14; }
std::uint8_t feedbackSwitch(int, int) { return 0x81; }
std::uint8_t revLimitCut(int column, int) { return column == 0 ? 0x02 : 0x08; }
std::uint8_t revLimitReturn(int column, int) { return column == 0 ? 0x01 : 0xF8; }
std::uint8_t revLimitNeutral(int, int) { return 120; }
std::uint8_t speedLimitCut(int, int) { return 180; }
std::uint8_t speedLimitReturn(int, int) { return 176; }
std::uint8_t speedLimitFan(int, int) { return 40; }
std::uint8_t fanOn(int, int) { return 0x5F; }
std::uint8_t fanOff(int, int) { return 0x5A; }

constexpr std::array entries{
    DemoEntry{"HIGH_FUEL", 0x1000, 16, 16, 256, "0", "燃料マップ (ハイオク)", "Fuel map (premium)",
              highFuel},
    DemoEntry{"HIGH_FIRE", 0x1100, 16, 16, 256, "0", "点火時期マップ (ハイオク)",
              "Ignition map (premium)", highFire},
    DemoEntry{"REG_FUEL", 0x1200, 16, 16, 256, "0", "燃料マップ (レギュラー)", "Fuel map (regular)",
              regularFuel},
    DemoEntry{"REG_FIRE", 0x1300, 16, 16, 256, "0", "点火時期マップ (レギュラー)",
              "Ignition map (regular)", regularFire},
    DemoEntry{"VQ_MAP", 0x1400, 64, 1, 128, "0", "エアフロ特性 (VQマップ)",
              "Airflow curve (VQ map)", airflow},
    DemoEntry{"TP_SCALE_FUEL", 0x1480, 16, 1, 16, "0", "燃料 TPスケール", "Fuel load scale",
              fuelLoad},
    DemoEntry{"TP_SCALE_FIRE", 0x1490, 16, 1, 16, "0", "点火 TPスケール", "Ignition load scale",
              fireLoad},
    DemoEntry{"RPM_SCALE_FUEL", 0x14A0, 16, 1, 16, "50", "燃料 回転スケール",
              "Fuel engine speed scale", engineSpeed},
    DemoEntry{"RPM_SCALE_FIRE", 0x14B0, 16, 1, 16, "50", "点火 回転スケール",
              "Ignition engine speed scale", engineSpeed},
    DemoEntry{"TTP_MAX", 0x14C0, 16, 1, 16, "0", "最大噴射量", "Greatest load", greatestLoad},
    DemoEntry{"TTP_MIN", 0x14D0, 16, 1, 16, "0", "最小噴射量", "Least load", leastLoad},
    DemoEntry{"AF_LIMIT", 0x14E0, 8, 1, 8, "0", "空燃比制限", "A/F limit", mixtureLimit},
    DemoEntry{"ADD_FUEL", 0x14F0, 8, 1, 8, "0", "加速増量", "Acceleration fuel", addedFuel},
    DemoEntry{"ADD_MAP1", 0x1500, 8, 8, 64, "1", "始動時増量", "Cold start fuel", coldStart},
    DemoEntry{"ADD_MAP2", 0x1540, 16, 16, 256, "2", "\"目標過給圧, 2倍表示\"",
              "\"Boost target, shown doubled\"", boostTarget},
    DemoEntry{"ADD_MAP3", 0x1640, 16, 1, 16, "1", "アイドル制御弁", "Idle valve", idleValve},
    DemoEntry{"ADD_MAP4", 0x1650, 12, 4, 48, "1", "暖機増量", "Warm-up fuel", warmUp},
    DemoEntry{"ADD_MAP5", 0x1680, 4, 4, 16, "1", "ノック遅角", "Knock retard", knockRetard},
    DemoEntry{"ADD_MAP6", 0, 0, 0, 0, "1", "未使用", "Unused", nullptr},
    DemoEntry{"K_DATA", 0x1700, 2, 1, 2, "0", "インジェクター定数 (K)", "Injector constant (K)",
              injectorConstant},
    DemoEntry{"IGN_TIME", 0x1702, 1, 1, 1, "0", "基準点火時期", "Base ignition timing",
              ignitionTime},
    DemoEntry{"FB_SWITCH", 0x1703, 1, 1, 1, "0", "フィードバック スイッチ", "Feedback switch",
              feedbackSwitch},
    DemoEntry{"REV1_LIMIT", 0x1710, 2, 1, 2, "12.5", "レブリミット", "Rev limit", revLimitCut},
    DemoEntry{"REV2_LIMIT", 0x1712, 2, 1, 2, "12.5", "レブリミット復帰", "Rev limit return",
              revLimitReturn},
    DemoEntry{"REV3_LIMIT", 0x1714, 1, 1, 1, "50", "ニュートラル時リミット", "Rev limit in neutral",
              revLimitNeutral},
    DemoEntry{"SPEED1_LIMIT", 0x1715, 1, 1, 1, "1", "速度リミット", "Speed limit", speedLimitCut},
    DemoEntry{"SPEED2_LIMIT", 0x1716, 1, 1, 1, "1", "速度リミット復帰", "Speed limit return",
              speedLimitReturn},
    DemoEntry{"SPEED3_LIMIT", 0x1717, 1, 1, 1, "1", "ファン停止速度", "Fan off above",
              speedLimitFan},
    DemoEntry{"ADD_BYTE1", 0x1718, 1, 1, 1, "0", "ファン作動温度", "Fan on temperature", fanOn},
    DemoEntry{"ADD_BYTE2", 0x1719, 1, 1, 1, "0", "ファン停止温度", "Fan off temperature", fanOff},
};

constexpr std::string_view notice = "MADE-UP DEMONSTRATION IMAGE. IT RUNS NO ENGINE.";
constexpr std::size_t mapsBegin = 0x1000;
constexpr std::size_t programBegin = 0x2000;

// Noise in the place of the control unit's program: the same bytes on every machine.
void fillProgram(std::span<std::uint8_t> program) {
  std::uint32_t state = 20260101;
  for (auto& byte : program) {
    state = state * 1664525u + 1013904223u;
    byte = static_cast<std::uint8_t>(state >> 24);
  }
}

void placeEntry(const DemoEntry& entry, std::span<std::uint8_t> image) {
  const int columns = entry.rows == 1 ? entry.bytes : entry.columns;
  for (int k = 0; k < entry.bytes; ++k) {
    image[static_cast<std::size_t>(entry.address + k)] = entry.valueAt(k % columns, k / columns);
  }
}

}  // namespace

std::span<const DemoEntry> demoEntries() { return entries; }

std::vector<std::uint8_t> demoImage() {
  std::vector<std::uint8_t> image(demoImageBytes, 0xFF);
  const std::span<std::uint8_t> all(image);
  std::ranges::copy(notice, image.begin());
  fillProgram(all.subspan(0x100, mapsBegin - 0x100));
  fillProgram(all.subspan(programBegin));
  for (const auto& entry : entries) placeEntry(entry, image);
  return image;
}
