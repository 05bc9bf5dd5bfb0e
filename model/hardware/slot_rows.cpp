#include <algorithm>

#include "model/hardware/slot_fields.h"

namespace calyx {

namespace {

using F = SlotFields;

void WriteSlots(std::string& out, const F& fields, const Target&) {
    bool first = true;
    for (const std::int32_t code : fields.codes) {
        if (!first) out += ',';
        first = false;
        AppendInteger(out, card::IsEmpty(code) ? 0 : code);
    }
}

// Exactly 14 entries, or nothing is taken. An entry that is no number is an empty slot.
Taken TakeSlots(F& fields, std::string_view text) {
    const auto pieces = Split(text, ',');
    if (pieces.size() != fields.codes.size()) return Taken::Not;
    bool whole = true;
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        const auto code = ReadInteger(pieces[i]);
        const bool good = code && code->value >= 0;
        whole = whole && good && code->whole;
        fields.codes[i] = good && !card::IsEmpty(code->value) ? code->value : card::kEmptySlot;
    }
    return whole ? Taken::Whole : Taken::Part;
}

constexpr Row<F> kRows[] = {
    ownRow<F>("HARDWARE", "0,0,0,0,0,0,0,0,0,0,0,0,0,0", ValueKind::Text,
              "14 card codes from 0 to 17, separated by commas", WriteSlots, TakeSlots,
              {.label = 4580, .help = 4581}),
};
constexpr auto kLayout = Lines{kRows}("HARDWARE");

}  // namespace

constexpr RowTable<SlotFields> kSlotTable{.rows = kRows,
                                          .layout = [](const F&) { return Layout<F>(kLayout); }};

}  // namespace calyx
