#include "airflow_curve.h"

#include <array>
#include <cmath>

namespace {

constexpr std::array tables{
    AirflowTable{"z32_vq_map.bin", {64, 420, 64000, 2.3}},
    AirflowTable{"hcr32_vq_map.bin", {64, 260, 46000, 2.0}},
    AirflowTable{"bnr32_vq_map.bin", {64, 380, 62000, 2.2}},
    AirflowTable{"ecr33_vq_map.bin", {64, 300, 52000, 2.1}},
    AirflowTable{"y32_vq_map.bin", {64, 340, 50000, 1.9}},
    AirflowTable{"s13_vq_map.bin", {52, 200, 38000, 1.8}},
    AirflowTable{"ps13_vq_map.bin", {64, 240, 44000, 1.9}},
    AirflowTable{"s14_vq_map.bin", {64, 250, 48000, 2.0}},
    AirflowTable{"s15_vq_map.bin", {64, 280, 55000, 2.2}},
};

}  // namespace

std::span<const AirflowTable> airflowTables() { return tables; }

std::vector<std::uint8_t> airflowBytes(const AirflowCurve& curve) {
  std::vector<std::uint8_t> bytes;
  for (int i = 0; i < curve.words; ++i) {
    const double along = static_cast<double>(i) / (curve.words - 1);
    const auto word =
        std::lround(curve.low + (curve.high - curve.low) * std::pow(along, curve.bend));
    bytes.push_back(static_cast<std::uint8_t>(word >> 8));
    bytes.push_back(static_cast<std::uint8_t>(word & 0xFF));
  }
  return bytes;
}
