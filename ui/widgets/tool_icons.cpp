#include "ui/widgets/tool_icons.h"

#include "ui/theme/icons.h"

namespace calyx::ui {

QIcon IconOf(ToolIcon icon) {
    switch (icon) {
        case ToolIcon::AlignLeft:  // a line and two bars at it
            return StrokeIcon("M 2 1 L 2 15 M 4 4 L 14 4 L 14 7 L 4 7 Z M 4 10 L 10 10 L 10 13 L 4 13 Z");
        case ToolIcon::AlignCentre:
            return StrokeIcon(
                "M 8 1 L 8 4 M 8 7 L 8 10 M 8 13 L 8 15 M 2 4 L 14 4 L 14 7 L 2 7 Z M 5 10 L 11 10 L 11 13 L "
                "5 13 Z");
        case ToolIcon::AlignRight:
            return StrokeIcon("M 14 1 L 14 15 M 2 4 L 12 4 L 12 7 L 2 7 Z M 6 10 L 12 10 L 12 13 L 6 13 Z");
        case ToolIcon::AlignTop:
            return StrokeIcon("M 1 2 L 15 2 M 4 4 L 4 14 L 7 14 L 7 4 Z M 10 4 L 10 10 L 13 10 L 13 4 Z");
        case ToolIcon::AlignMiddle:
            return StrokeIcon(
                "M 1 8 L 4 8 M 7 8 L 10 8 M 13 8 L 15 8 M 4 2 L 4 14 L 7 14 L 7 2 Z M 10 5 L 10 11 L 13 11 L "
                "13 5 Z");
        case ToolIcon::AlignBottom:
            return StrokeIcon("M 1 14 L 15 14 M 4 2 L 4 12 L 7 12 L 7 2 Z M 10 6 L 10 12 L 13 12 L 13 6 Z");
        case ToolIcon::SpreadAcross:  // a bar midway between two lines
            return StrokeIcon("M 2 1 L 2 15 M 14 1 L 14 15 M 6 4 L 10 4 L 10 12 L 6 12 Z");
        case ToolIcon::SpreadDown:
            return StrokeIcon("M 1 2 L 15 2 M 1 14 L 15 14 M 4 6 L 4 10 L 12 10 L 12 6 Z");
        case ToolIcon::SameWidth:  // an arrow to both sides
            return StrokeIcon(
                "M 2 2 L 14 2 L 14 6 L 2 6 Z M 2 11 L 14 11 M 5 8 L 2 11 L 5 14 M 11 8 L 14 11 L 11 14");
        case ToolIcon::SameHeight:
            return StrokeIcon(
                "M 2 2 L 2 14 L 6 14 L 6 2 Z M 11 2 L 11 14 M 8 5 L 11 2 L 14 5 M 8 11 L 11 14 L 14 11");
        case ToolIcon::ToFront:  // the full sheet before the other
            return StrokeIcon("M 1 1 L 10 1 L 10 10 L 1 10 Z F M 12 6 L 15 6 L 15 15 L 6 15 L 6 12");
        case ToolIcon::ToBack:
            return StrokeIcon("M 6 6 L 15 6 L 15 15 L 6 15 Z M 1 1 L 10 1 L 10 4 L 4 4 L 4 10 L 1 10 Z F");
    }
    return {};
}

QIcon IconOf(WidgetKind kind) {
    switch (kind) {
        case WidgetKind::Scale:
            return StrokeIcon("M 1 3 L 15 3 M 8 3 L 8 6 M 3 14 L 4 6 L 12 6 L 13 14 Z O 8 10 2");
        case WidgetKind::Bitmap:  // a picture of mountains
            return StrokeIcon("M 1 2 L 15 2 L 15 14 L 1 14 Z M 1 12 L 6 7 L 9 10 L 11 8 L 15 12 D 11 5 1");
        case WidgetKind::Bargraph:
            return StrokeIcon("M 1 5 L 15 5 L 15 11 L 1 11 Z M 3 7 L 9 7 L 9 9 L 3 9 Z F");
        case WidgetKind::Label:
            return StrokeIcon("M 3 5 L 3 3 L 13 3 L 13 5 M 8 3 L 8 13 M 6 13 L 10 13");
        case WidgetKind::Numeric:
            return StrokeIcon("M 1 3 L 15 3 L 15 13 L 1 13 Z M 4 7 L 5 6 L 5 10 M 8 6 L 11 6 L 8 10 L 11 10");
        case WidgetKind::Symbol:
            return StrokeIcon("O 8 7 5 M 6 12 L 6 15 L 10 15 L 10 12");
    }
    return {};
}

}  // namespace calyx::ui
