#include "ui/form/mark.h"

#include <QPainter>

#include "ui/theme/metrics.h"

namespace calyx::ui::form {

Mark::Mark(QWidget* parent) : QWidget(parent) {
    setFixedSize(metrics::kIconSmall, metrics::kControlHeight);
}

void Mark::Show(IconName icon, const QStringList& words) {
    shown_ = true;
    icon_ = icon;
    setToolTip(words.join(u'\n'));
    setAccessibleName(words.join(u' '));
    update();
}

void Mark::Clear() {
    shown_ = false;
    setToolTip({});
    setAccessibleName({});
    update();
}

void Mark::paintEvent(QPaintEvent*) {
    if (!shown_) return;
    QPainter painter(this);
    const int top = (height() - metrics::kIconSmall) / 2;
    Icon(icon_).paint(&painter, QRect(0, top, metrics::kIconSmall, metrics::kIconSmall));
}

}  // namespace calyx::ui::form
