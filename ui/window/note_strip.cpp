#include "ui/window/note_strip.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QToolButton>

#include "ui/text.h"
#include "ui/texts.h"
#include "ui/theme/icons.h"
#include "ui/theme/metrics.h"
#include "ui/theme/tokens.h"

namespace calyx::ui {

NoteStrip::NoteStrip(const ResourceTexts& texts, const QString& name)
    : words_(new QLabel), close_(new QToolButton) {
    setObjectName(name);
    setAutoFillBackground(true);
    setBackgroundRole(role::kRaised);
    auto* icon = new QLabel;
    icon->setPixmap(Icon(IconName::Info).pixmap(metrics::kIconSmall));
    icon->setFixedSize(metrics::kIconSmall, metrics::kControlHeight);
    words_->setObjectName(name + QStringLiteral("Words"));
    words_->setTextFormat(Qt::PlainText);
    words_->setWordWrap(true);
    words_->setMinimumHeight(metrics::kControlHeight);
    words_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    close_->setObjectName(name + QStringLiteral("Close"));
    close_->setIcon(Icon(IconName::Close));
    close_->setAutoRaise(true);
    close_->setToolTip(Say(texts, say::kNoteClose));
    close_->setAccessibleName(close_->toolTip());
    close_->setFixedSize(metrics::kControlHeight, metrics::kControlHeight);
    close_->setFocusPolicy(Qt::TabFocus);
    auto* row = new QHBoxLayout(this);
    // The icon stands in the edge, as the marks of fields do.
    row->setContentsMargins(metrics::kPageEdge - metrics::kIconSmall - metrics::kHalf, metrics::kHalf,
                            metrics::kRelated, metrics::kHalf);
    row->setSpacing(metrics::kHalf);
    row->addWidget(icon, 0, Qt::AlignTop);
    row->addWidget(words_, 1);
    row->addSpacing(metrics::kRelated);
    buttons_ = new QHBoxLayout;
    buttons_->setSpacing(metrics::kRelated);
    row->addLayout(buttons_);
    row->addWidget(close_, 0, Qt::AlignTop);
    hide();
    connect(close_, &QToolButton::clicked, this, &QWidget::hide);
}

// Before the one that closes.
QPushButton* NoteStrip::AddButton(const char* name, const QString& caption) {
    auto* button = new QPushButton(caption);
    button->setObjectName(QLatin1String(name));
    button->setAutoDefault(false);
    buttons_->addWidget(button, 0, Qt::AlignTop);
    setTabOrder(button, close_);
    return button;
}

void NoteStrip::Tell(const QString& words) {
    words_->setText(words);
    setAccessibleName(words);
    show();
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

}  // namespace calyx::ui
