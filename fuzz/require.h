#pragma once

#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

namespace calyx::fuzz {

// What must hold for every input. Ends the program, so that the fuzzer keeps the input.
inline void Require(bool holds, std::string_view what) {
    if (holds) return;
    std::fprintf(stderr, "Broken: %.*s\n", static_cast<int>(what.size()), what.data());
    std::abort();
}

// The same for two texts; shows where they part.
inline void RequireEqual(const std::string& is, const std::string& shouldBe, std::string_view what) {
    if (is == shouldBe) return;
    std::size_t at = 0;
    while (at < is.size() && at < shouldBe.size() && is[at] == shouldBe[at]) ++at;
    const std::size_t from = at < 40 ? 0 : at - 40;
    std::fprintf(stderr, "From character %zu on: is\n%s\nshould be\n%s\n", from, is.substr(from, 120).c_str(),
                 shouldBe.substr(from, 120).c_str());
    Require(false, what);
}

}  // namespace calyx::fuzz
