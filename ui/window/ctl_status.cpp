#include "ui/window/ctl_status.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>

#include "ui/text.h"
#include "ui/texts.h"
#include "ui/theme/metrics.h"
#include "ui/theme/tokens.h"
#include "ui/window/elided_label.h"

namespace calyx::ui {

ctlStatus::ctlStatus(const ResourceTexts& texts) {
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(metrics::kRelated, 0, metrics::kRelated, 0);
    row->setSpacing(metrics::kGroups);
    file_ = AddFact("statusFile", Say(texts, say::kFileFactName));
    device_ = AddFact("statusDevice", Say(texts, say::kDeviceFactName));
    target_ = AddFact("statusTarget", Say(texts, say::kTargetFactName));
    message_ = new ElidedLabel(Qt::ElideRight);
    message_->setObjectName(QStringLiteral("statusMessage"));
    message_->setForegroundRole(role::kQuietText);
    message_->setMinimumWidth(0);
    message_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    message_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    row->addWidget(message_, 1);
    setMinimumHeight(metrics::kControlHeight);
    fade_.setSingleShot(true);
    connect(&fade_, &QTimer::timeout, message_, &QLabel::clear);
}

QLabel* ctlStatus::AddFact(const char* name, const QString& accessible) {
    auto* row = static_cast<QHBoxLayout*>(layout());
    if (row->count() > 0) {
        auto* divider = new QFrame;
        divider->setFrameShape(QFrame::VLine);
        divider->setFrameShadow(QFrame::Plain);
        divider->setForegroundRole(role::kDivider);
        row->addWidget(divider);
    }
    auto* fact = new ElidedLabel(Qt::ElideMiddle);
    fact->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    fact->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Preferred);
    fact->setObjectName(QLatin1String(name));
    fact->setAccessibleDescription(accessible);
    row->addWidget(fact);
    return fact;
}

void ctlStatus::SetFile(const QString& words) {
    file_->setText(words);
    file_->setToolTip(words);
}

void ctlStatus::SetDevice(const QString& words) {
    device_->setText(words);
    device_->setToolTip(words);
}

void ctlStatus::SetTarget(const QString& words) {
    target_->setText(words);
}

void ctlStatus::ShowMessage(const QString& words) {
    message_->setText(words);
    message_->setToolTip(words);
    fade_.start(kMessageTime);
}

QString ctlStatus::Message() const {
    return message_->text();
}

}  // namespace calyx::ui
