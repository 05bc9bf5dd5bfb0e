#pragma once

#include <string_view>

namespace calyx::ui {

// The strokes of a symbol's style, 0 to 41, on a grid of 16 by 16 (ui/theme/icon_shapes.h).
std::string_view SymbolStrokes(int style);

}  // namespace calyx::ui
