// Reading Intel HEX: a filter from text lines to a flat run of bytes. It takes the byte count and
// the data of each record and nothing else: record types, checksums and all addresses but the first
// are not looked at.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

// The most lines a file may have, and the capacities in use, in bytes.
constexpr std::int64_t maximumHexLines = 70001;
constexpr std::int64_t imageHexCapacity = 140001;
constexpr std::int64_t halfHexCapacity = 200001;

// The bytes of all records in the order of the lines. A line ends with a carriage return and the
// one byte behind it, whatever it is; text behind the last carriage return is dropped. Lines that
// begin ":00" or ":02" are passed over. 0xFF fills up to the first record's address. Columns that
// a line doesn't have count as 0.
// Fails with badSubscript: more than `maximumHexLines` line ends, more than `capacity` bytes, a
// first address of 8000 or above, a file of no bytes, records that give no byte.
std::vector<std::uint8_t> readIntelHex(std::span<const std::uint8_t> fileBytes,
                                       std::int64_t capacity);

// The same, but a file of records that give no byte gives none.
std::vector<std::uint8_t> readIntelHexOrNothing(std::span<const std::uint8_t> fileBytes,
                                                std::int64_t capacity,
                                                std::int64_t maximumLines = maximumHexLines);

// The value of the hexadecimal digits at the start of a field of up to four characters, as a signed
// 16-bit number; no digit gives 0.
std::int32_t hexField(std::string_view text);
