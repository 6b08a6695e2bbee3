// Writing Intel HEX: records of 32 bytes with their offsets as addresses, between one opening and
// one closing line. Lines end with CR LF, digits are upper-case.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "rom/addressed_bytes.h"

// The text of `source`. Addresses of data are the low 16 bits of the offset: every further 65536
// bytes open with a segment record (type 02) below 1 MiB, with a linear one (type 04) above. A rest
// of less than 32 bytes makes a last record of its own length; one of exactly 2 bytes makes two
// records, since the reader passes over records of two bytes.
std::string intelHexText(std::span<const std::uint8_t> source);

// The text of stretches in ascending order, which need not begin at 0: each change of an address's
// upper half, 0 at first, opens with a linear record.
std::string intelHexText(std::span<const AddressedBytes> parts);
