#include "ui/window/tab_order.h"

#include <QApplication>
#include <QWidget>
#include <algorithm>
#include <vector>

namespace calyx::ui {

namespace {

bool TakesTab(const QWidget& widget, const QWidget& window) {
    return (widget.focusPolicy() & Qt::TabFocus) != 0 && widget.isEnabled() && widget.isVisibleTo(&window);
}

// The fields of a part, in their order. A field that stands for another is reached through that one.
std::vector<QWidget*> FieldsOf(QWidget& part) {
    std::vector<QWidget*> fields;
    QWidget* widget = &part;
    do {
        const bool inside = widget == &part || part.isAncestorOf(widget);
        if (inside && widget->focusProxy() == nullptr && TakesTab(*widget, *part.window()))
            fields.push_back(widget);
        widget = widget->nextInFocusChain();
    } while (widget != &part);
    return fields;
}

}  // namespace

bool StepFocus(std::span<QWidget* const> parts, bool next) {
    QWidget* now = QApplication::focusWidget();
    std::vector<QWidget*> fields;
    std::size_t at = 0;
    bool found = false;
    for (QWidget* part : parts) {
        for (QWidget* field : FieldsOf(*part)) {
            if (field == now) {
                found = true;
                at = fields.size();
            }
            fields.push_back(field);
        }
    }
    if (!found || fields.size() < 2) return false;
    const std::size_t to = (at + (next ? 1 : fields.size() - 1)) % fields.size();
    fields[to]->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    return true;
}

void StepPart(std::span<QWidget* const> parts, bool next) {
    const QWidget* focus = QApplication::focusWidget();
    const auto has = [&](QWidget* part) { return part == focus || part->isAncestorOf(focus); };
    const auto now = static_cast<std::size_t>(std::find_if(parts.begin(), parts.end(), has) - parts.begin());
    const std::size_t count = parts.size();
    // From none of them forward to the first, back to the last.
    const std::size_t start = now < count ? now : next ? count - 1 : 0;
    for (std::size_t step = 1; step <= count; ++step) {
        QWidget* part = parts[(start + (next ? step : count - step)) % count];
        const std::vector<QWidget*> fields = FieldsOf(*part);
        if (fields.empty()) continue;
        const bool known = std::find(fields.begin(), fields.end(), part->focusWidget()) != fields.end();
        return (known ? part->focusWidget() : fields.front())->setFocus(Qt::TabFocusReason);
    }
}

}  // namespace calyx::ui
