#pragma once

#include <array>
#include <cstdint>

#include "model/language/row.h"

namespace calyx {

// Industrial mode: the indicator starts with one of its user screens, and groups of its keys are locked, so
// that an operator sees and does what the plant needs and nothing else.
struct IndustrialModeFields {
    static constexpr int kMostScreen = 20;

    bool on = false;
    std::int32_t startScreen = 1;  // user screen that is shown after power-up
    // Locked keys: weighing, print, arrows, digits, enter, soft keys.
    std::array<bool, 6> locked{};
    bool inFile = false;

    bool HasContent() const {
        IndustrialModeFields plain;
        plain.inFile = inFile;
        return inFile || !(*this == plain);
    }
    friend bool operator==(const IndustrialModeFields&, const IndustrialModeFields&) = default;
};

extern const RowTable<IndustrialModeFields> kIndustrialModeTable;

}  // namespace calyx
