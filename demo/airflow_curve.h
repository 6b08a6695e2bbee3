// Airflow curves: what an airflow meter's output stands for, as rising 16-bit words. All of them
// are invented: one formula and a few numbers a curve.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

// A curve of `words` words from `low` to `high`; the greater `bend`, the later it rises.
struct AirflowCurve {
  int words;
  double low;
  double high;
  double bend;
};

// An airflow table that comes with the program: its file name and its curve.
struct AirflowTable {
  const char* fileName;
  AirflowCurve curve;
};

// The nine tables in the order of the menu.
std::span<const AirflowTable> airflowTables();

// The words of `curve`, high byte first: two bytes a word.
std::vector<std::uint8_t> airflowBytes(const AirflowCurve& curve);
