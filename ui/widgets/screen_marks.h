#pragma once

#include <QPainter>
#include <QRectF>
#include <vector>

#include "model/widgets/widget_fields.h"
#include "ui/widgets/arrange.h"

namespace calyx::ui {

// What the editor draws over the display, in pixels of the window. The display is pale in every theme, and
// so these marks have the colours of the light one.
namespace marks {

struct Grip {
    Handle handle;
    QRectF place;
};
// The handles of a chosen widget; none where its kind has no size of its own.
std::vector<Grip> GripsOf(const QRectF& rect, WidgetKind kind);
Qt::CursorShape CursorOf(Handle handle);

void Outline(QPainter& painter, const QRectF& rect);  // a widget that is not chosen
void Chosen(QPainter& painter, const QRectF& rect, bool lead);
void Grips(QPainter& painter, const std::vector<Grip>& grips);
void Band(QPainter& painter, const QRectF& rect);
void Grid(QPainter& painter, QPointF corner, QSize grid, double zoom);

}  // namespace marks
}  // namespace calyx::ui
