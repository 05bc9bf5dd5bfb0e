#include "model/document/checksum.h"

#include <array>
#include <bit>
#include <cstring>

namespace calyx {

namespace {

// Table k holds the checksum of a byte that k further bytes follow, so that a step takes many bytes, whose
// look-ups do not wait for one another.
constexpr std::size_t kStep = 16;
using Tables = std::array<std::array<std::uint32_t, 256>, kStep>;

constexpr Tables MakeTables() {
    Tables tables{};
    for (std::uint32_t byte = 0; byte < 256; ++byte) {
        std::uint32_t crc = byte;
        for (int bit = 0; bit < 8; ++bit) crc = crc & 1u ? (crc >> 1) ^ 0xEDB88320u : crc >> 1;
        tables[0][byte] = crc;
    }
    for (std::size_t k = 1; k < kStep; ++k) {
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
        for (; left >= kStep; at += kStep, left -= kStep) {
            std::uint64_t first, second;
            std::memcpy(&first, at, 8);
            std::memcpy(&second, at + 8, 8);
            first ^= crc;
            crc = 0;
            for (std::size_t k = 0; k < 8; ++k, first >>= 8, second >>= 8)
                crc ^= kTables[kStep - 1 - k][first & 0xFF] ^ kTables[kStep / 2 - 1 - k][second & 0xFF];
        }
    }
    for (; left != 0; ++at, --left)
        crc = (crc >> 8) ^ kTables[0][(crc ^ static_cast<unsigned char>(*at)) & 0xFF];
    return static_cast<std::int32_t>(~crc);
}

}  // namespace calyx
