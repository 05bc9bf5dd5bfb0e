#include "ui/widgets/ctl_view_bar.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QToolButton>
#include <algorithm>

#include "ui/text.h"
#include "ui/theme/metrics.h"
#include "ui/theme/tokens.h"
#include "ui/widgets/widget_texts.h"

namespace calyx::ui {

using namespace widget_text;

ctlViewBar::ctlViewBar(const ResourceTexts& texts, Settings& settings)
    : texts_(texts), zoom_(new QLabel), fit_(MakeBox(kZoomFit, kZoomFitTip, "chkFit")) {
    setObjectName(QStringLiteral("ctlViewBar"));
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(metrics::kHalf);
    row->addWidget(MakeSwitch(settings.SnapToGrid, kSnap, kSnapTip, "chkSnap"));
    row->addWidget(MakeSide(settings.GridWidth, kGridWidth, "gridWidth"));
    auto* by = new QLabel(Say(texts, kBy));
    by->setForegroundRole(role::kQuietText);
    row->addWidget(by);
    row->addWidget(MakeSide(settings.GridHeight, kGridHeight, "gridHeight"));
    row->addSpacing(metrics::kRelated);
    row->addWidget(MakeSwitch(settings.LockWidgets, kLock, kLockTip, "chkLock"));
    row->addStretch(1);
    auto* smaller = MakeButton(QString(QChar(0x2212)), kZoomOut, "cmdZoomOut");
    auto* larger = MakeButton(QStringLiteral("+"), kZoomIn, "cmdZoomIn");
    connect(smaller, &QToolButton::clicked, this, [this] { emit ZoomTurned(-1); });
    connect(larger, &QToolButton::clicked, this, [this] { emit ZoomTurned(1); });
    zoom_->setObjectName(QStringLiteral("zoom"));
    zoom_->setAccessibleName(Say(texts, kZoomName));
    zoom_->setAlignment(Qt::AlignCenter);
    zoom_->setMinimumWidth(
        zoom_->fontMetrics().horizontalAdvance(Say(texts, kPercent, QString::number(kMostZoom))));
    connect(fit_, &QCheckBox::clicked, this, &ctlViewBar::FitToggled);
    row->addWidget(smaller);
    row->addWidget(zoom_);
    row->addWidget(larger);
    row->addWidget(fit_);
}

QCheckBox* ctlViewBar::MakeBox(int text, int tip, const char* name) {
    auto* box = new QCheckBox(Say(texts_, text));
    box->setObjectName(QLatin1String(name));
    box->setToolTip(Say(texts_, tip));
    box->setMinimumHeight(metrics::kControlHeight);
    return box;
}

QCheckBox* ctlViewBar::MakeSwitch(bool& setting, int text, int tip, const char* name) {
    QCheckBox* box = MakeBox(text, tip, name);
    box->setChecked(setting);
    connect(box, &QCheckBox::toggled, this, [this, &setting](bool on) {
        setting = on;
        emit ViewChanged();
    });
    return box;
}

QSpinBox* ctlViewBar::MakeSide(std::int32_t& side, int name, const char* object) {
    constexpr int kWidest = 64;
    auto* box = new QSpinBox;
    box->setObjectName(QLatin1String(object));
    box->setAccessibleName(Say(texts_, name));
    box->setToolTip(Say(texts_, name));
    box->setRange(1, kWidest);
    box->setValue(std::clamp<int>(side, 1, kWidest));
    connect(box, &QSpinBox::valueChanged, this, [this, &side](int value) {
        side = value;
        emit ViewChanged();
    });
    return box;
}

QToolButton* ctlViewBar::MakeButton(const QString& text, int tip, const char* name) {
    auto* button = new QToolButton;
    button->setObjectName(QLatin1String(name));
    button->setText(text);
    button->setToolTip(Say(texts_, tip));
    button->setAccessibleName(Say(texts_, tip));
    button->setMinimumSize(metrics::kControlHeight, metrics::kControlHeight);
    button->setFocusPolicy(Qt::StrongFocus);
    return button;
}

void ctlViewBar::ShowZoom(int percent, bool fits) {
    zoom_->setText(Say(texts_, kPercent, QString::number(percent)));
    const QSignalBlocker quiet(fit_);
    fit_->setChecked(fits);
}

}  // namespace calyx::ui
