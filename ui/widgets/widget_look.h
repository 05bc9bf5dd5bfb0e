#pragma once

#include <QRect>
#include <optional>

#include "model/widgets/widgets.h"

namespace calyx::ui {

// How large things are on the indicator's display, in its pixels. A place of the display is one of 320 by
// 250 whose corner is at 0, 0.

inline constexpr QRect kScreenRect{0, 0, kScreenWidth, kScreenHeight};

// What a kind of widget leaves to a person.
bool HasPlace(WidgetKind kind);
bool HasWidth(WidgetKind kind);
bool HasHeight(WidgetKind kind);

inline constexpr int kSymbolSide = 24;
int FontPixels(int code);  // height of the characters; codes beyond the known ones have the size of code 3
int LineHeight(int code);  // of a label or numeric field in that font

// What a widget takes up: where it has no size of its own, what its font, its kind or (for a scale) its
// style and the scales before it on the screen decide.
QRect ShownRect(const CWidgets& widgets, int number);
// Where a click meets it: of a scale only the part with its figures, as its area may be the whole screen.
QRect HitRect(const CWidgets& widgets, int number);

// The figures of a scale of that style that is the n-th one (from 0) of the style on its screen.
struct ScaleCell {
    QRect area;
    int figures = 0;  // height in pixels
};
ScaleCell CellOf(int style, int place);
ScaleCell CellOf(const CWidgets& widgets, int number);

}  // namespace calyx::ui
