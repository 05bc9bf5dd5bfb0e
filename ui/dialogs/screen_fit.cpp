#include "ui/dialogs/screen_fit.h"

#include <QScreen>
#include <QStyle>

namespace calyx::ui {

QSize FitScreen(const QWidget& widget, QSize wanted) {
    // How wide the frame will be is known only when the window stands; the style's title is near enough.
    constexpr int kSides = 16;
    const int title = widget.style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, &widget);
    return wanted.boundedTo(widget.screen()->availableGeometry().size() - QSize(kSides, title + kSides));
}

}  // namespace calyx::ui
