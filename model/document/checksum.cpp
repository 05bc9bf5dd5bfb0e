#include "model/document/checksum.h"

#include <array>
#include <bit>
#include <cstring>

namespace calyx {

namespace {

// Table k holds the checksum of a byte that k further bytes follow, so that eight bytes go in one step.
using Tables = std::array<std::array<std::uint32_t, 256>, 8>;

constexpr Tables MakeTables() {
    Tables tables{};
    for (std::uint32_t byte = 0; byte < 256; ++byte) {
        std::uint32_t crc = byte;
        for (int bit = 0; bit < 8; ++bit) crc = crc & 1u ? (crc >> 1) ^ 0xEDB88320u : crc >> 1;
        tables[0][byte] = crc;
    }
    for (std::size_t k = 1; k < 8; ++k) {
        for (std::size_t byte = 0; byte < 256; ++byte) {
            const std::uint32_t crc = tables[k - 1][byte];
            tables[k][byte] = (crc >> 8) ^ tables[0][crc & 0xFF];
        }
    }
    return tables;
}

constexpr Tables kTables = MakeTables();

}  // namespace

std::int32_t Checksum(std::string_view body) {
    std::uint32_t crc = ~0u;
    const char* at = body.data();
    std::size_t left = body.size();
    if constexpr (std::endian::native == std::endian::little) {
        for (; left >= 8; at += 8, left -= 8) {
            std::uint64_t chunk;
            std::memcpy(&chunk, at, 8);
            chunk ^= crc;
            crc = kTables[7][chunk & 0xFF] ^ kTables[6][chunk >> 8 & 0xFF] ^ kTables[5][chunk >> 16 & 0xFF] ^
                  kTables[4][chunk >> 24 & 0xFF] ^ kTables[3][chunk >> 32 & 0xFF] ^
                  kTables[2][chunk >> 40 & 0xFF] ^ kTables[1][chunk >> 48 & 0xFF] ^ kTables[0][chunk >> 56];
        }
    }
    for (; left != 0; ++at, --left)
        crc = (crc >> 8) ^ kTables[0][(crc ^ static_cast<unsigned char>(*at)) & 0xFF];
    return static_cast<std::int32_t>(~crc);
}

}  // namespace calyx
