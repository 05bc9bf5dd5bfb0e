#include "ui/form/help_popup.h"

#include <QLabel>
#include <QScreen>
#include <QVBoxLayout>
#include <algorithm>

#include "ui/theme/metrics.h"
#include "ui/theme/theme.h"

namespace calyx::ui::form {

namespace {
constexpr int kTextWidth = 400;
constexpr int kGap = 2;  // between field and popup
}  // namespace

HelpPopup::HelpPopup(const QString& caption, const QString& help, QWidget* field)
    : QFrame(field, Qt::Popup), field_(field) {
    setObjectName(QStringLiteral("fieldHelp"));
    setAttribute(Qt::WA_DeleteOnClose);
    setFrameShape(QFrame::Box);
    setForegroundRole(role::kBorder);
    setBackgroundRole(role::kField);
    setAutoFillBackground(true);
    setAccessibleName(caption);
    auto* title = new QLabel(caption, this);
    title->setTextFormat(Qt::PlainText);
    title->setFont(StrongFont());
    title->setForegroundRole(role::kText);
    auto* words = new QLabel(help, this);
    words->setObjectName(QStringLiteral("fieldHelpText"));
    words->setTextFormat(Qt::RichText);
    words->setWordWrap(true);
    words->setFixedWidth(kTextWidth);
    words->setForegroundRole(role::kText);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(metrics::kGroups, metrics::kGroups, metrics::kGroups, metrics::kRelated);
    column->setSpacing(metrics::kHalf);
    column->addWidget(title);
    column->addWidget(words);
}

void HelpPopup::Open() {
    adjustSize();
    const QRect screen = field_->screen()->availableGeometry();
    QPoint place = field_->mapToGlobal(QPoint(0, field_->height() + kGap));
    if (place.y() + height() > screen.bottom())
        place.setY(field_->mapToGlobal(QPoint()).y() - height() - kGap);
    place.setX(std::clamp(place.x(), screen.left(), std::max(screen.left(), screen.right() - width())));
    move(place);
    show();
}

void HelpPopup::keyPressEvent(QKeyEvent*) {
    close();
}

}  // namespace calyx::ui::form
