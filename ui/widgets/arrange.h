#pragma once

#include <QRect>
#include <map>

namespace calyx::ui {

// Where widgets stand, by their numbers, in pixels of the display. These functions answer with all of the
// given widgets, changed or not, and never leave the display: 320 by 250, corners from 0 on.
using Areas = std::map<int, QRect>;

enum class Edge { Left, Centre, Right, Top, Middle, Bottom };

Areas Aligned(const Areas& areas, const QRect& with, Edge edge);
// Even gaps between the outermost, which stay; gaps that do not divide evenly differ by one pixel.
Areas Spread(const Areas& areas, Qt::Orientation direction);
Areas Sized(const Areas& areas, QSize like, bool width, bool height);

QRect OnScreen(const QRect& rect);  // of the same size, moved onto the display as far as it goes
// As far of a step as all of the areas together can go.
QPoint StepWithin(const Areas& areas, QPoint step);
Areas Moved(const Areas& areas, QPoint step);  // by exactly that

// The grid. A size of 0 or less in a direction: none there.
int Snapped(int place, int grid);
QPoint Snapped(QPoint place, QSize grid);

// Which edges a handle pulls: -1 the left or upper one, 1 the right or lower one, 0 none.
struct Handle {
    int across = 0, down = 0;
    bool Any() const { return across != 0 || down != 0; }
    friend bool operator==(const Handle&, const Handle&) = default;
};
inline constexpr int kLeastSide = 4;  // a widget can be pulled no smaller
// The pulled edges go by the step and to the grid.
QRect Pulled(const QRect& rect, Handle handle, QPoint step, QSize grid);

}  // namespace calyx::ui
