// Writing Motorola S-records: a header, records of 32 bytes with addresses as wide as the last one
// needs, a count where it fits, an end. Lines end with CR LF, digits are upper-case.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "rom/addressed_bytes.h"

// The text of `source`, its first byte at `base`.
std::string sRecordText(std::span<const std::uint8_t> source, std::uint32_t base = 0);
// The text of stretches in ascending order.
std::string sRecordText(std::span<const AddressedBytes> parts);
