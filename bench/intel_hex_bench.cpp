// Intel HEX from and to texts in memory, beside a bare table-driven decoder and encoder of the same
// texts that check nothing.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <random>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "rom/intel_hex_reader.h"
#include "rom/intel_hex_writer.h"

namespace {

using Bytes = std::vector<std::uint8_t>;
constexpr std::int64_t smallest = 32 << 10;
constexpr std::int64_t largest = 8 << 20;
constexpr std::int64_t noLimit = 1 << 30;
constexpr std::size_t recordBytes = 32;

Bytes randomImage(std::int64_t size) {
  std::mt19937 random(1);
  Bytes bytes(static_cast<std::size_t>(size));
  for (auto& byte : bytes) byte = static_cast<std::uint8_t>(random());
  return bytes;
}

std::span<const std::uint8_t> bytesOf(const std::string& text) {
  return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

void countBytes(benchmark::State& state) {
  state.SetBytesProcessed(state.iterations() * state.range(0));
  state.SetComplexityN(state.range(0));
}

void read(benchmark::State& state) {
  const std::string text = intelHexText(randomImage(state.range(0)));
  for (auto _ : state) {
    benchmark::DoNotOptimize(readIntelHexOrNothing(bytesOf(text), noLimit, noLimit));
  }
  countBytes(state);
}
BENCHMARK(read)->RangeMultiplier(4)->Range(smallest, largest)->Complexity(benchmark::oN);

std::array<std::uint8_t, 256> makeDigitValues() {
  std::array<std::uint8_t, 256> values{};
  constexpr std::string_view digits = "0123456789ABCDEF";
  for (std::size_t i = 0; i < digits.size(); ++i) {
    values[static_cast<std::uint8_t>(digits[i])] = static_cast<std::uint8_t>(i);
  }
  return values;
}

// All records of data are taken to have 32 bytes, all others 2.
Bytes decodeBare(std::string_view text, std::size_t size) {
  static const auto values = makeDigitValues();
  constexpr std::size_t otherLength = 17;
  constexpr std::size_t dataLength = 13 + 2 * recordBytes;
  Bytes bytes(size);
  std::uint8_t* to = bytes.data();
  const char* from = text.data();
  while (to != bytes.data() + bytes.size()) {
    if (from[1] == '0') {
      from += otherLength;
      continue;
    }
    for (std::size_t i = 0; i < recordBytes; ++i) {
      const auto high = values[static_cast<std::uint8_t>(from[9 + 2 * i])];
      const auto low = values[static_cast<std::uint8_t>(from[10 + 2 * i])];
      *to++ = static_cast<std::uint8_t>(high << 4 | low);
    }
    from += dataLength;
  }
  return bytes;
}

void readBare(benchmark::State& state) {
  const Bytes image = randomImage(state.range(0));
  const std::string text = intelHexText(image);
  if (decodeBare(text, image.size()) != image) return state.SkipWithError("decodes wrongly");
  for (auto _ : state) benchmark::DoNotOptimize(decodeBare(text, image.size()));
  countBytes(state);
}
BENCHMARK(readBare)->RangeMultiplier(4)->Range(smallest, largest)->Complexity(benchmark::oN);

void write(benchmark::State& state) {
  const Bytes image = randomImage(state.range(0));
  for (auto _ : state) benchmark::DoNotOptimize(intelHexText(image));
  countBytes(state);
}
BENCHMARK(write)->RangeMultiplier(4)->Range(smallest, largest)->Complexity(benchmark::oN);

std::array<std::uint16_t, 256> makeDigitPairs() {
  constexpr std::string_view digits = "0123456789ABCDEF";
  std::array<std::uint16_t, 256> pairs{};
  for (std::size_t i = 0; i < pairs.size(); ++i) {
    const std::array<char, 2> pair = {digits[i >> 4], digits[i & 15]};
    std::memcpy(&pairs[i], pair.data(), pair.size());
  }
  return pairs;
}

// Lines of 32 bytes without addresses and checksums.
std::string encodeBare(const Bytes& image) {
  static const auto pairs = makeDigitPairs();
  constexpr std::string_view head = ":20000000";
  constexpr std::string_view tail = "00\r\n";
  std::string text(image.size() / recordBytes * (head.size() + 2 * recordBytes + tail.size()), 0);
  char* to = text.data();
  const std::uint8_t* from = image.data();
  for (std::size_t left = image.size() / recordBytes; left > 0; --left) {
    to = std::copy(head.begin(), head.end(), to);
    for (std::size_t i = 0; i < recordBytes; ++i) std::memcpy(to + 2 * i, &pairs[from[i]], 2);
    from += recordBytes;
    to = std::copy(tail.begin(), tail.end(), to + 2 * recordBytes);
  }
  return text;
}

void writeBare(benchmark::State& state) {
  const Bytes image = randomImage(state.range(0));
  for (auto _ : state) benchmark::DoNotOptimize(encodeBare(image));
  countBytes(state);
}
BENCHMARK(writeBare)->RangeMultiplier(4)->Range(smallest, largest)->Complexity(benchmark::oN);

}  // namespace
