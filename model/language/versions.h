#pragma once

#include <array>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

namespace calyx {

// The firmware versions that the program knows, oldest first, each by its prefix. There is no 2.04:
// the gap is the firmware's own.
inline constexpr std::array<std::string_view, 26> kVersions{
    "1.00.", "1.01.", "1.02.", "1.03.", "1.04.", "1.05.", "1.06.", "2.00.", "2.01.",
    "2.02.", "2.03.", "2.05.", "2.06.", "2.07.", "2.08.", "3.00.", "3.01.", "3.02.",
    "3.03.", "3.04.", "3.05.", "3.06.", "3.07.", "3.08.", "3.09.", "3.10."};

// A set of versions, one bit each. All bits set, those beyond the list included, means ungated: such
// a line is written for unknown versions too, while a gated line is not.
struct Gate {
    std::uint32_t versions = ~0u;

    constexpr bool Ungated() const { return versions == ~0u; }
    constexpr Gate operator|(Gate other) const { return {versions | other.versions}; }
    constexpr Gate operator&(Gate other) const { return {versions & other.versions}; }
    friend constexpr bool operator==(Gate, Gate) = default;
};

inline constexpr std::uint32_t kUnknownVersion = 1u << 31;

// The bit of a version prefix; kUnknownVersion for a text that is not in the list.
constexpr std::uint32_t VersionBit(std::string_view prefix) {
    for (std::size_t i = 0; i < kVersions.size(); ++i) {
        if (kVersions[i] == prefix) return 1u << i;
    }
    return kUnknownVersion;
}

// As VersionBit, but a version that does not exist stops the build.
consteval std::uint32_t KnownBit(std::string_view prefix) {
    const std::uint32_t bit = VersionBit(prefix);
    if (bit == kUnknownVersion) throw "no such firmware version";
    return bit;
}

// "3.01." gives "3.01." to "3.10.".
consteval Gate Since(std::string_view prefix) {
    return {~(KnownBit(prefix) - 1) & ((1u << kVersions.size()) - 1)};
}

// Exactly the versions named.
consteval Gate Only(std::initializer_list<std::string_view> prefixes) {
    Gate gate{0};
    for (const auto prefix : prefixes) gate.versions |= KnownBit(prefix);
    return gate;
}

// The set in words: "all versions", "2.00 to 3.10", "1.05, 2.00 to 3.10".
std::string Words(Gate gate);

// What lines are written for. `all` is the file body and the text view: every gate is open.
struct Target {
    std::uint32_t version = VersionBit(kVersions.back());
    bool cb2 = false;
    bool all = false;

    constexpr bool Opens(Gate gate) const { return all || cb2 || (gate.versions & version) != 0; }
    // As Opens, but the CB2 flag does not count: some values are written in an older form with it.
    constexpr bool Knows(Gate gate) const { return all || (gate.versions & version) != 0; }

    static constexpr Target Everything() { return {.all = true}; }
};

// The application-wide setting: the version prefix of the indicator that output is meant for, and
// the CB2 flag. Before any connection it is the newest version.
struct TargetVersion {
    std::string prefix{kVersions.back()};
    bool cb2 = false;

    Target Gated() const { return {.version = VersionBit(prefix), .cb2 = cb2, .all = false}; }

    // Takes over the reply to "VERSION": "V3.10.02 MERRIN" gives "3.10.". A reply without a "." after
    // its first character leaves the prefix as it is and still decides the CB2 flag.
    void TakeReply(std::string_view reply);
};

// Text up to and including the last ".": "3.10.5" gives "3.10.", "V3.10.02" gives "V3.10.".
std::string_view VersionPrefix(std::string_view version);

}  // namespace calyx
