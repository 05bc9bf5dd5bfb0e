#pragma once

#include <QColor>
#include <QPainter>

#include "ui/widgets/scale_display.h"
#include "ui/widgets/widget_look.h"

namespace calyx::ui {

// The display of the indicator, the same in every theme: dark on pale.
struct DisplayColours {
    QColor paper{0xEE, 0xF2, 0xEA};
    QColor ink{0x14, 0x1A, 0x18};
    QColor shade{0xA9, 0xB2, 0xA8};  // the far side of raised and sunken borders
};

// Draws a screen as the indicator shows it, in pixels of the display: the painter's transformation gives
// zoom and place. Values are samples, since nothing is weighed here. Needs no window.
class ScreenPainter {
  public:
    // Both outlive the painter.
    ScreenPainter(const CWidgets& widgets, const ScaleDisplays& scales);

    // Hidden widgets are left out, or drawn pale for an editor.
    void SetGhosts(bool ghosts) { ghosts_ = ghosts; }
    void Paint(QPainter& painter, int screen) const;
    void PaintWidget(QPainter& painter, int number) const;

  private:
    void PaintScale(QPainter& painter, int number) const;
    void PaintBitmap(QPainter& painter, const WidgetFields& fields, const QRect& rect) const;
    void PaintBar(QPainter& painter, const WidgetFields& fields, const QRect& rect) const;
    void PaintText(QPainter& painter, const WidgetFields& fields, const QRect& rect,
                   const QString& text) const;
    void PaintBorder(QPainter& painter, int style, const QRect& rect) const;
    QFont FontOf(int pixels, bool strong = false) const;

    const CWidgets& widgets_;
    const ScaleDisplays& scales_;
    DisplayColours colours_;
    bool ghosts_ = false;
};

}  // namespace calyx::ui
