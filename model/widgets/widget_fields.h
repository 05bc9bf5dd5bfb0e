#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "model/language/row.h"
#include "model/language/text.h"

namespace calyx {

// The first field of a widget's record.
enum class WidgetKind : std::uint8_t { Scale = 1, Bitmap, Bargraph, Label, Numeric, Symbol };

// What widgets of all kinds hold; a kind's table says which of it is its own.
struct WidgetFields {
    std::int32_t screenNumber = 1;   // 1 to 20
    std::int32_t left = 0, top = 0;  // pixels, on a screen of 320 by 250
    std::int32_t width = 0, height = 0;
    bool visible = true;
    FixedText<8> name;  // becomes a constant of the import file
    std::int32_t style = 0, borderStyle = 0, justification = 0, fontSize = 0, orientation = 0;
    bool graduations = true;
    std::string caption;               // at most 64 characters, no blanks at the end
    std::int32_t numberDisplayed = 1;  // a scale's number
    std::int32_t dataSource = 1, dataField = 0, dataSubField = 0;

    friend bool operator==(const WidgetFields&, const WidgetFields&) = default;
};

// A kind of widget. Its record is the kind's number and the rows of its table, in their order.
struct WidgetKindInfo {
    WidgetKind kind;
    int name;  // resource text
    const RowTable<WidgetFields>* table;
    // Places of the rows that the record holds in a form of its own; -1: the kind has none.
    int topRow;
    int captionRow;
};

// Top stands in the record with this added, on purpose: the indicator's own status line lies above.
inline constexpr int kTopOffset = 14;

inline constexpr int kScreens = 20;
inline constexpr int kScreenWidth = 320, kScreenHeight = 250;

extern const std::array<WidgetKindInfo, 6> kWidgetKinds;
inline const WidgetKindInfo& InfoOf(WidgetKind kind) {
    return kWidgetKinds[static_cast<std::size_t>(kind) - 1];
}

}  // namespace calyx
