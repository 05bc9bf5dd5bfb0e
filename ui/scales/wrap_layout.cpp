#include "ui/scales/wrap_layout.h"

#include <algorithm>

#include "ui/theme/metrics.h"

namespace calyx::ui {

namespace {
constexpr int kGap = metrics::kHalf;
}

WrapLayout::WrapLayout(QWidget* parent) : QLayout(parent) {
    setContentsMargins(0, 0, 0, 0);
}

WrapLayout::~WrapLayout() {
    for (QLayoutItem* item : items_) delete item;
}

QLayoutItem* WrapLayout::itemAt(int index) const {
    return index >= 0 && index < count() ? items_[static_cast<std::size_t>(index)] : nullptr;
}

QLayoutItem* WrapLayout::takeAt(int index) {
    QLayoutItem* taken = itemAt(index);
    if (taken != nullptr) items_.erase(items_.begin() + index);
    return taken;
}

QSize WrapLayout::sizeHint() const {
    int width = 0, height = 0;
    for (const QLayoutItem* item : items_) {
        width += item->sizeHint().width() + kGap;
        height = std::max(height, item->sizeHint().height());
    }
    return {width, height};
}

QSize WrapLayout::minimumSize() const {
    QSize size;
    for (const QLayoutItem* item : items_) size = size.expandedTo(item->sizeHint());
    return size;
}

void WrapLayout::setGeometry(const QRect& rect) {
    QLayout::setGeometry(rect);
    Arrange(rect, true);
}

int WrapLayout::Arrange(const QRect& rect, bool apply) const {
    int x = rect.left(), y = rect.top(), line = 0;
    for (QLayoutItem* item : items_) {
        const QSize size = item->sizeHint();
        if (x > rect.left() && x + size.width() > rect.right() + 1) {
            x = rect.left();
            y += line + kGap;
            line = 0;
        }
        if (apply) item->setGeometry({QPoint(x, y), size});
        x += size.width() + kGap;
        line = std::max(line, size.height());
    }
    return y + line - rect.top();
}

}  // namespace calyx::ui
