#pragma once

#include <string_view>

#include "ui/theme/icons.h"

namespace calyx::ui {

// The strokes of an icon on a grid of 16 by 16, as a row of commands with coordinates between blanks:
//   M x y   begin a line     L x y  on to a point     Q x y x y  curve (control point, end)    Z  close
//   O x y r circle           D x y r  filled disc     F  the closed shape just drawn is filled
std::string_view IconStrokes(IconName name);

}  // namespace calyx::ui
