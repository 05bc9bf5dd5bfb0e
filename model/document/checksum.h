#pragma once

#include <cstdint>
#include <string_view>

namespace calyx {

// The checksum of a file body: CRC-32 as in ISO-HDLC ("123456789" gives 0xCBF43926), as a signed number.
std::int32_t Checksum(std::string_view body);

}  // namespace calyx
