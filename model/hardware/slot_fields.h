#pragma once

#include <array>
#include <cstdint>

#include "model/cards/card_types.h"
#include "model/language/row.h"

namespace calyx {

// The code of the card in each expansion slot; slot 1 stands first.
struct SlotFields {
    std::array<std::int32_t, card::kSlots> codes = [] {
        std::array<std::int32_t, card::kSlots> empty{};
        empty.fill(card::kEmptySlot);
        return empty;
    }();

    friend bool operator==(const SlotFields&, const SlotFields&) = default;
};

extern const RowTable<SlotFields> kSlotTable;

}  // namespace calyx
