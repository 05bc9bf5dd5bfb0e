#include "ui/widgets/arrange.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "ui/widgets/widget_look.h"

namespace calyx::ui {

namespace {

// A widget that is larger than the display begins at its edge.
int Within(int place, int size, int whole) {
    return std::clamp(place, 0, std::max(0, whole - std::max(1, size)));
}

}  // namespace

QRect OnScreen(const QRect& rect) {
    return {
        QPoint(Within(rect.x(), rect.width(), kScreenWidth), Within(rect.y(), rect.height(), kScreenHeight)),
        rect.size()};
}

Areas Aligned(const Areas& areas, const QRect& with, Edge edge) {
    Areas aligned = areas;
    for (auto& [number, rect] : aligned) {
        switch (edge) {
            case Edge::Left:
                rect.moveLeft(with.x());
                break;
            case Edge::Centre:
                rect.moveLeft(with.x() + (with.width() - rect.width()) / 2);
                break;
            case Edge::Right:
                rect.moveRight(with.right());
                break;
            case Edge::Top:
                rect.moveTop(with.y());
                break;
            case Edge::Middle:
                rect.moveTop(with.y() + (with.height() - rect.height()) / 2);
                break;
            case Edge::Bottom:
                rect.moveBottom(with.bottom());
                break;
        }
        rect = OnScreen(rect);
    }
    return aligned;
}

Areas Spread(const Areas& areas, Qt::Orientation direction) {
    Areas spread = areas;
    const bool across = direction == Qt::Horizontal;
    const auto start = [across](const QRect& rect) { return across ? rect.x() : rect.y(); };
    const auto size = [across](const QRect& rect) { return across ? rect.width() : rect.height(); };
    std::vector<QRect*> order;
    int used = 0;
    for (auto& [number, rect] : spread) {
        order.push_back(&rect);
        used += size(rect);
    }
    if (order.size() < 3) return spread;
    std::stable_sort(order.begin(), order.end(),
                     [&](const QRect* a, const QRect* b) { return start(*a) < start(*b); });
    // The one that ends last stays; it need not be the one that begins last.
    const auto last = std::max_element(order.begin(), order.end(), [&](const QRect* a, const QRect* b) {
        return start(*a) + size(*a) < start(*b) + size(*b);
    });
    std::rotate(last, last + 1, order.end());
    const int begin = start(*order.front());
    const double gap = static_cast<double>(start(*order.back()) + size(*order.back()) - begin - used) /
                       static_cast<double>(order.size() - 1);
    double place = begin;
    for (std::size_t i = 0; i + 1 < order.size(); ++i) {
        const int at = static_cast<int>(std::lround(place));
        across ? order[i]->moveLeft(at) : order[i]->moveTop(at);
        *order[i] = OnScreen(*order[i]);
        place += size(*order[i]) + gap;
    }
    return spread;
}

Areas Sized(const Areas& areas, QSize like, bool width, bool height) {
    Areas sized = areas;
    for (auto& [number, rect] : sized) {
        rect.setSize({width ? like.width() : rect.width(), height ? like.height() : rect.height()});
        rect = OnScreen(rect);
    }
    return sized;
}

QPoint StepWithin(const Areas& areas, QPoint step) {
    int least[2] = {-kScreenWidth, -kScreenHeight}, most[2] = {kScreenWidth, kScreenHeight};
    for (const auto& [number, rect] : areas) {
        least[0] = std::max(least[0], -rect.x());
        least[1] = std::max(least[1], -rect.y());
        // What already reaches over the edge may stay there, and go back.
        most[0] = std::min(most[0], std::max(0, kScreenWidth - rect.x() - std::max(1, rect.width())));
        most[1] = std::min(most[1], std::max(0, kScreenHeight - rect.y() - std::max(1, rect.height())));
    }
    return {std::clamp(step.x(), least[0], most[0]), std::clamp(step.y(), least[1], most[1])};
}

Areas Moved(const Areas& areas, QPoint step) {
    Areas moved = areas;
    for (auto& [number, rect] : moved) rect.translate(step);
    return moved;
}

int Snapped(int place, int grid) {
    return grid <= 0 ? place : static_cast<int>(std::lround(static_cast<double>(place) / grid)) * grid;
}

QPoint Snapped(QPoint place, QSize grid) {
    return {Snapped(place.x(), grid.width()), Snapped(place.y(), grid.height())};
}

QRect Pulled(const QRect& rect, Handle handle, QPoint step, QSize grid) {
    // One direction: where it begins, how long it is.
    const auto pull = [](int from, int size, int edge, int by, int cell, int whole) {
        const int to = from + size;
        if (edge < 0) {
            const int at = std::clamp(Snapped(from + by, cell), 0, std::clamp(to - kLeastSide, 0, whole - 1));
            return std::pair(at, to - at);
        }
        if (edge > 0) {
            const int at = std::clamp(Snapped(to + by, cell), from + kLeastSide, std::max(whole, to));
            return std::pair(from, at - from);
        }
        return std::pair(from, size);
    };
    const auto [left, width] =
        pull(rect.x(), rect.width(), handle.across, step.x(), grid.width(), kScreenWidth);
    const auto [top, height] =
        pull(rect.y(), rect.height(), handle.down, step.y(), grid.height(), kScreenHeight);
    return {left, top, width, height};
}

}  // namespace calyx::ui
