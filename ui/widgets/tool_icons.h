#pragma once

#include <QIcon>

#include "model/widgets/widget_fields.h"

namespace calyx::ui {

// Pictures of the screen editor's own, in the strokes of all icons.
enum class ToolIcon {
    AlignLeft,
    AlignCentre,
    AlignRight,
    AlignTop,
    AlignMiddle,
    AlignBottom,
    SpreadAcross,
    SpreadDown,
    SameWidth,
    SameHeight,
    ToFront,
    ToBack
};
QIcon IconOf(ToolIcon icon);
QIcon IconOf(WidgetKind kind);

}  // namespace calyx::ui
