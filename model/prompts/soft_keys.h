#pragma once

#include <array>
#include <cstdint>

#include "model/language/broken_rules.h"
#include "model/language/context.h"
#include "model/language/row.h"

namespace calyx {

// The ten soft keys: what each does, and which one stands at each place of the display.
struct SoftKeyFields {
    static constexpr int kCount = 10;

    std::array<FixedText<10>, kCount> functions;
    std::array<std::int32_t, kCount> order{1, 2, 3, 4, 5, 6, 7, 8, 9, 10};  // soft key at place 1, 2 ...
    bool inFile = false;

    bool HasContent() const;
    friend bool operator==(const SoftKeyFields&, const SoftKeyFields&) = default;
};

extern const RowTable<SoftKeyFields> kSoftKeyTable;

// Soft keys that stand at two places. `section`: the name of the section that owns them.
void CheckSoftKeys(const SoftKeyFields& fields, const ModelContext& context, std::string_view section,
                   CBrokenRules& rules);

}  // namespace calyx
