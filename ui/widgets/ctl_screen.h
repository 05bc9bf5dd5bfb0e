#pragma once

#include <QWidget>
#include <optional>

#include "app/settings.h"
#include "ui/widgets/screen_edits.h"
#include "ui/widgets/screen_gesture.h"
#include "ui/widgets/screen_painter.h"

namespace calyx::ui {

// The kind of widget that is dragged from the palette: its code in figures.
inline constexpr QLatin1String kKindFormat("application/x-calyx-widget-kind");

// The screen that is edited: the display, true to scale, and over it the marks of what is chosen. Pointer
// and keys become edits; what they would do is shown while they do it.
class ctlScreen : public QWidget {
    Q_OBJECT

  public:
    ctlScreen(DocumentSession& session, ScreenState& state, ScreenEdits& edits, const Settings& settings);

    double Zoom() const { return zoom_; }
    void SetZoom(double zoom);
    // How large the display would be to fill this room.
    static double FittingZoom(QSize room);
    QRectF ToWindow(const QRect& rect) const;
    QPoint ToDisplay(QPointF place) const;

    // The next click places a widget of that kind; nothing: it chooses.
    void SetPlacing(std::optional<WidgetKind> kind);
    std::optional<WidgetKind> Placing() const { return placing_; }
    // Without a pointer: where nothing stands yet, as far as there is such a place.
    void PlaceFree(WidgetKind kind);

    ScreenState& State() const { return state_; }
    QSize sizeHint() const override;

  signals:
    void ZoomTurned(int steps);  // by the wheel
    void PlacingEnded();
    void MenuWanted(const QPoint& global);
    void PropertiesWanted();

  protected:
    bool event(QEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

  private:
    QSize Grid(Qt::KeyboardModifiers keys) const;  // empty: none
    QPointF Corner() const;                        // of the display in this widget
    int WidgetAt(QPoint place) const;              // 0: none
    std::optional<Handle> HandleAt(QPointF place) const;
    void Choose(int number, Qt::KeyboardModifiers keys);
    void FinishBand(Qt::KeyboardModifiers keys);
    void CancelGesture();
    void PlaceAt(WidgetKind kind, QPointF place, Qt::KeyboardModifiers keys);
    bool Arrow(const QKeyEvent& event);
    void ShowCursor(QPointF place);
    void PaintMarks(QPainter& painter, const CWidgets& widgets) const;
    CWidgets Shown() const;  // as a gesture would leave them

    DocumentSession& session_;
    ScreenState& state_;
    ScreenEdits& edits_;
    const Settings& settings_;
    double zoom_ = 1;
    ScreenGesture gesture_;
    QPointF pressed_;
    std::optional<WidgetKind> placing_;
    int clicked_ = 0;  // alone chosen when the button is released without a drag
};

}  // namespace calyx::ui
