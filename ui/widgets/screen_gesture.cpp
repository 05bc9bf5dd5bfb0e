#include "ui/widgets/screen_gesture.h"

#include <cstdlib>
#include <utility>

namespace calyx::ui {

void ScreenGesture::Begin(Kind kind, QPoint at, Areas areas) {
    kind_ = kind;
    from_ = to_ = at;
    moved_ = false;
    result_ = before_ = std::move(areas);
}

void ScreenGesture::BeginBand(QPoint at) {
    Begin(Kind::Band, at, {});
}

void ScreenGesture::BeginMove(QPoint at, Areas areas, int lead) {
    Begin(Kind::Move, at, std::move(areas));
    lead_ = lead;
}

void ScreenGesture::BeginPull(QPoint at, int number, const QRect& rect, Handle handle) {
    Begin(Kind::Pull, at, {{number, rect}});
    handle_ = handle;
}

void ScreenGesture::DragTo(QPoint at, QSize grid, bool straight) {
    to_ = at;
    QPoint step = to_ - from_;
    moved_ = moved_ || !step.isNull();
    if (straight) (std::abs(step.x()) >= std::abs(step.y()) ? step.ry() : step.rx()) = 0;
    if (kind_ == Kind::Move) {
        const auto lead = before_.find(lead_);
        if (lead != before_.end()) {
            const QPoint corner = lead->second.topLeft(), to = Snapped(corner + step, grid);
            // A direction in which nothing moves stays off the grid where it is.
            if (step.x() != 0) step.setX(to.x() - corner.x());
            if (step.y() != 0) step.setY(to.y() - corner.y());
        }
        result_ = Moved(before_, StepWithin(before_, step));
    } else if (kind_ == Kind::Pull) {
        for (auto& [number, rect] : result_) rect = Pulled(before_.at(number), handle_, step, grid);
    }
}

}  // namespace calyx::ui
