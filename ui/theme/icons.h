#pragma once

#include <QColor>
#include <QIcon>
#include <QPixmap>
#include <string_view>

class QPainter;

namespace calyx::ui {

// clang-format off
enum class IconName {
    New, Open, Save, Undo, Redo, Connect, Send, Read, Compare, Find,         // commands
    Problem, Changed, Differs,                                               // marks on a field
    General, Hardware, Ports, Scales, Setpoints, Tickets, Screens, Prompts,  // sections
    Boxes, Fieldbus, Custom, SoftKeys, Lock, Database, Digital, Analog,
    Info, Question, Close, Calendar, Previous, Next,
};
// clang-format on
inline constexpr int kIconCount = static_cast<int>(IconName::Next) + 1;

// Drawn when asked for, in the colours of the palette of the day and sharp at any size and screen
// ratio. `size` is what it tells as its own size; it can be painted larger or smaller. Marks have the
// colour of what they say, everything else that of text; chosen items get the colour on the accent.
QIcon Icon(IconName name, int size = 16);

// One picture in one colour. `size` in device-independent pixels.
QPixmap IconPixmap(IconName name, int size, qreal ratio, const QColor& colour);

// The same for pictures of a page's own, given by their strokes (icon_shapes.h), which outlive the icon.
QIcon StrokeIcon(std::string_view strokes, int size = 16);
// Draws strokes in a square of that side.
void DrawStrokes(QPainter& painter, QPointF corner, double side, const QColor& colour,
                 std::string_view strokes);

}  // namespace calyx::ui
