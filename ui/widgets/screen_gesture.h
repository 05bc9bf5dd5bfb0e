#pragma once

#include <QPoint>
#include <optional>
#include <vector>

#include "ui/widgets/arrange.h"

namespace calyx::ui {

// What the pointer does on the screen between press and release, in pixels of the display. It changes
// nothing itself: it tells what the widgets would become.
class ScreenGesture {
  public:
    enum class Kind { None, Band, Move, Pull };

    void BeginBand(QPoint at);
    // All of the areas move; `lead` is the one under the pointer, which keeps to the grid.
    void BeginMove(QPoint at, Areas areas, int lead);
    void BeginPull(QPoint at, int number, const QRect& rect, Handle handle);
    // `grid`: empty for none. `straight`: only across or only down, whichever is further.
    void DragTo(QPoint at, QSize grid, bool straight);
    void End() { kind_ = Kind::None; }

    Kind What() const { return kind_; }
    bool HasMoved() const { return moved_; }
    const Areas& Result() const { return result_; }
    QRect Band() const { return QRect(from_, to_).normalized(); }

  private:
    void Begin(Kind kind, QPoint at, Areas areas);

    Kind kind_ = Kind::None;
    QPoint from_, to_;
    bool moved_ = false;
    Areas before_, result_;
    int lead_ = 0;
    Handle handle_;
};

}  // namespace calyx::ui
