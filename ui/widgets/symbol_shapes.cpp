#include "ui/widgets/symbol_shapes.h"

#include <array>

namespace calyx::ui {

namespace {

using namespace std::string_view_literals;

// In the order of the styles. Letters stand in a circle, as they do on the display's status line.
constexpr std::array kSymbols{
    "O 8 8 6"sv,
    "D 8 8 6"sv,
    "M 2 2 L 14 2 L 14 14 L 2 14 Z"sv,
    "M 2 2 L 14 2 L 14 14 L 2 14 Z F"sv,
    "O 8 7 5 M 6 12 L 6 15 L 10 15 L 10 12"sv,                                        // lamp, off
    "D 8 7 5 M 6 12 L 6 15 L 10 15 L 10 12 M 8 0 L 8 1 M 1 7 L 2 7 M 14 7 L 15 7"sv,  // lamp, on
    "M 8 14 L 8 2 M 3 7 L 8 2 L 13 7"sv,                                              // arrows
    "M 8 2 L 8 14 M 3 9 L 8 14 L 13 9"sv,
    "M 14 8 L 2 8 M 7 3 L 2 8 L 7 13"sv,
    "M 2 8 L 14 8 M 9 3 L 14 8 L 9 13"sv,
    "M 8 2 L 14 14 L 2 14 Z F"sv,  // triangles
    "M 8 14 L 14 2 L 2 2 Z F"sv,
    "M 2 8 L 14 2 L 14 14 Z F"sv,
    "M 14 8 L 2 2 L 2 14 Z F"sv,
    "M 8 2 L 8 14 M 2 8 L 14 8"sv,
    "M 2 8 L 14 8"sv,
    "M 3 3 L 13 13 M 13 3 L 3 13"sv,
    "M 2 9 L 6 13 L 14 3"sv,
    "M 8 1 L 15 14 L 1 14 Z M 8 6 L 8 10 D 8 12 0.9"sv,                          // warning
    "M 5 1 L 11 1 L 15 5 L 15 11 L 11 15 L 5 15 L 1 11 L 1 5 Z M 4 8 L 12 8"sv,  // stop
    "M 1 5 Q 4 1 8 5 Q 12 9 15 5 M 1 11 Q 4 7 8 11 Q 12 15 15 11"sv,             // motion
    "M 3 2 L 1 2 L 1 14 L 3 14 M 13 2 L 15 2 L 15 14 L 13 14 O 8 8 4"sv,         // centre of zero
    "O 8 8 7 M 11 6 Q 8 3 6 6 Q 4 10 7 12 Q 10 12 11 11 L 11 9 L 8 9"sv,         // gross
    "O 8 8 7 M 6 12 L 6 4 L 10 12 L 10 4"sv,                                     // net
    "O 8 8 7 M 5 4 L 11 4 M 8 4 L 8 12"sv,                                       // tare
    "M 4 6 L 4 1 L 12 1 L 12 6 M 1 6 L 15 6 L 15 12 L 1 12 Z M 4 10 L 12 10 L 12 15 L 4 15 Z"sv,
    "M 1 3 L 10 3 L 10 11 L 1 11 Z M 10 6 L 13 6 L 15 9 L 15 11 L 10 11 O 4 12 2 O 12 12 2"sv,
    "M 1 3 L 15 3 M 8 3 L 8 6 M 3 14 L 4 6 L 12 6 L 13 14 Z O 8 10 2"sv,
    "M 2 2 L 14 2 L 14 7 L 10 11 L 10 14 L 6 14 L 6 11 L 2 7 Z"sv,
    "M 3 4 Q 8 0 13 4 L 13 12 Q 8 16 3 12 Z M 3 8 L 13 8"sv,
    "M 1 5 L 8 9 L 1 13 Z M 15 5 L 8 9 L 15 13 Z M 8 9 L 8 3 M 5 3 L 11 3"sv,  // valves
    "M 1 5 L 8 9 L 1 13 Z F M 15 5 L 8 9 L 15 13 Z F M 8 9 L 8 3 M 5 3 L 11 3"sv,
    "O 8 8 6 M 5 11 L 5 5 L 8 9 L 11 5 L 11 11"sv,                                 // motor
    "O 8 8 6 M 4 4 L 14 8 L 4 12"sv,                                               // pump
    "O 3 8 2 O 13 8 2 M 3 6 L 13 6 M 3 10 L 13 10 M 6 2 L 10 2 L 10 5 L 6 5 Z"sv,  // belt
    "M 2 15 L 2 3 M 14 15 L 14 3 M 2 13 L 5 5 M 14 13 L 11 5"sv,                   // gates
    "M 2 15 L 2 3 M 14 15 L 14 3 M 2 9 L 14 9 M 5 6 L 5 12 M 11 6 L 11 12"sv,
    "M 3 7 L 13 7 L 13 15 L 3 15 Z M 5 7 L 5 4 Q 5 1 8 1 Q 11 1 11 4 L 11 7 D 8 11 1"sv,
    "O 5 8 3 M 8 8 L 15 8 L 15 11 M 12 8 L 12 10"sv,
    "M 3 12 Q 4 11 4 7 Q 4 3 8 3 Q 12 3 12 7 Q 12 11 13 12 Z D 8 14 1 M 8 1 L 8 3"sv,
    "O 8 8 7 M 8 4 L 8 8 L 11 10"sv,
    "O 8 5 3 M 2 15 Q 2 9 8 9 Q 14 9 14 15"sv,
};
static_assert(kSymbols.size() == 42);

}  // namespace

std::string_view SymbolStrokes(int style) {
    const bool known = style >= 0 && style < static_cast<int>(kSymbols.size());
    return kSymbols[static_cast<std::size_t>(known ? style : 0)];
}

}  // namespace calyx::ui
