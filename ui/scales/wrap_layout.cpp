#include "ui/scales/wrap_layout.h"

#include <algorithm>
#include <iterator>

namespace calyx::ui {

WrapLayout::WrapLayout(QWidget* parent, int gap) : QLayout(parent), gap_(gap) {
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
        width += item->sizeHint().width() + gap_;
        height = std::max(height, item->sizeHint().height());
    }
    return {width, height};
}

QSize WrapLayout::minimumSize() const {
    QSize size;
    for (const QLayoutItem* item : items_)
        size = size.expandedTo(item->hasHeightForWidth() ? item->minimumSize() : item->sizeHint());
    return size;
}

void WrapLayout::setGeometry(const QRect& rect) {
    QLayout::setGeometry(rect);
    Arrange(rect, true);
}

// Words that go on in further lines themselves are no wider than there is room.
QSize WrapLayout::Size(const QLayoutItem& item, int room) {
    const QSize size = item.sizeHint();
    if (!item.hasHeightForWidth()) return size;
    const int width = std::clamp(size.width(), 1, std::max(1, room));
    return {width, item.heightForWidth(width)};
}

int WrapLayout::Arrange(const QRect& rect, bool apply) const {
    std::vector<QLayoutItem*> seen;
    std::copy_if(items_.begin(), items_.end(), std::back_inserter(seen),
                 [](const QLayoutItem* item) { return !item->isEmpty(); });
    int x = rect.left(), y = rect.top(), line = 0;
    const int end = rect.right() + 1;
    for (std::size_t i = 0; i < seen.size(); ++i) {
        QLayoutItem* item = seen[i];
        QSize size = Size(*item, rect.width());
        if (x > rect.left() && x + size.width() > end) {
            x = rect.left();
            y += line + gap_;
            line = 0;
        }
        const bool last =
            i + 1 == seen.size() || x + size.width() + gap_ + Size(*seen[i + 1], rect.width()).width() > end;
        if (last && item->expandingDirections().testFlag(Qt::Horizontal))
            size.setWidth(std::max(size.width(), end - x));
        if (apply) item->setGeometry({QPoint(x, y), size});
        x += size.width() + gap_;
        line = std::max(line, size.height());
    }
    return y + line - rect.top();
}

}  // namespace calyx::ui
