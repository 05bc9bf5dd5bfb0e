#include "ui/setpoints/ctl_setpoint_bar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <utility>

#include "model/setpoints/setpoint_edits.h"
#include "model/setpoints/setpoint_sentence.h"
#include "ui/dialogs/dialogs.h"
#include "ui/setpoints/setpoint_texts.h"
#include "ui/text.h"
#include "ui/theme/metrics.h"
#include "ui/theme/tokens.h"

namespace calyx::ui {

ctlSetpointBar::ctlSetpointBar(DocumentSession& session, const PageTools& tools, QString names)
    : session_(session),
      tools_(tools),
      names_(std::move(names)),
      target_(new QSpinBox),
      targetState_(new QLabel) {
    auto* label = new QLabel(Say(Texts(), say::kToNumber));
    label->setBuddy(target_);
    target_->setObjectName(names_ + QStringLiteral("targetNumber"));
    target_->setRange(1, kSetpoints);
    connect(target_, &QSpinBox::valueChanged, this, &ctlSetpointBar::ShowTarget);
    targetState_->setForegroundRole(role::kQuietText);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(metrics::kRelated);
    row->addWidget(label);
    row->addWidget(target_);
    row->addWidget(MakeButton(say::kDuplicate, say::kDuplicateTip, QStringLiteral("cmdDuplicate"),
                              &ctlSetpointBar::Duplicate));
    row->addWidget(MakeButton(say::kMove, say::kMoveTip, QStringLiteral("cmdMove"), &ctlSetpointBar::Move));
    row->addWidget(targetState_);
    row->addStretch(1);
    row->addWidget(
        MakeButton(say::kClear, say::kClearTip, QStringLiteral("cmdClear"), &ctlSetpointBar::Clear));
}

void ctlSetpointBar::SetNumber(int number) {
    if (std::exchange(number_, number) != number) target_->setValue(FirstFree());
    ShowTarget();
}

void ctlSetpointBar::Refresh() {
    ShowTarget();
}

QPushButton* ctlSetpointBar::MakeButton(int text, int tip, const QString& name,
                                        void (ctlSetpointBar::*act)()) {
    auto* button = new QPushButton(Say(Texts(), text));
    button->setObjectName(names_ + name);
    button->setToolTip(Say(Texts(), tip));
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, act);
    return button;
}

const CSetpoints& ctlSetpointBar::All() const {
    return std::as_const(session_).Document().Setpoints();
}

bool ctlSetpointBar::IsFree(int number) const {
    return All().Item(number).Values().IsOff();
}

int ctlSetpointBar::FirstFree() const {
    for (int step = 1; step < kSetpoints; ++step) {
        const int number = (number_ - 1 + step) % kSetpoints + 1;
        if (IsFree(number)) return number;
    }
    return number_;
}

// What stands under the number that a command would use.
void ctlSetpointBar::ShowTarget() {
    const SetpointKind kind = All().Item(target_->value()).Values().kind;
    targetState_->setText(Say(Texts(), kind == SetpointKind::Off ? say::kFree : KindName(kind)));
}

QString ctlSetpointBar::InUse(int number) const {
    return Say(Texts(), say::kInUse, QString::number(number),
               Shown(SetpointSentence(All().Item(number), Texts())));
}

bool ctlSetpointBar::Apply(const std::vector<Change>& changes, int name, int other) {
    if (changes.empty()) return false;
    ChangeSet set;
    for (const Change& change : changes) set.Add(change);
    session_.Do(Texts().Format(name, {std::to_string(number_), std::to_string(other)}),
                [&](CIndicator& document) { return document.Apply(set); });
    return true;
}

void ctlSetpointBar::Duplicate() {
    const int to = target_->value();
    const QString number = QString::number(to);
    if (IsFree(number_)) return emit session_.Told(Say(Texts(), say::kNothingToCopy));
    if (to == number_) return emit session_.Told(Say(Texts(), say::kSameNumber, number));
    if (!IsFree(to) &&
        tools_.ask({Tone::Question,
                    Say(Texts(), say::kDuplicateTitle),
                    InUse(to) + QStringLiteral("\n\n") + Say(Texts(), say::kCopyReplaces, number),
                    {},
                    {Say(Texts(), say::kReplaceSetpoint, number), Say(Texts(), say::kKeepSetpoint, number)},
                    1}) != 0) {
        return;
    }
    if (Apply(DuplicateSetpoint(All(), number_, to), say::kDuplicateStep, to)) emit Made(to);
}

void ctlSetpointBar::Move() {
    const int to = target_->value();
    if (to == number_) return emit session_.Told(Say(Texts(), say::kSameNumber, QString::number(to)));
    bool moved = false;
    if (IsFree(to)) {
        moved = Apply(RenumberSetpoint(All(), number_, to), say::kMoveStep, to);
    } else {
        const int answer = tools_.ask(
            {Tone::Question,
             Say(Texts(), say::kMoveTitle),
             InUse(to) + QStringLiteral("\n\n") + Say(Texts(), say::kMoveChoices),
             {},
             {Say(Texts(), say::kMoveAlong), Say(Texts(), say::kSwap), Say(Texts(), say::kKeepNumbers)},
             2});
        if (answer == 0) moved = Apply(MoveSetpoint(All(), number_, to), say::kMoveStep, to);
        if (answer == 1) moved = Apply(SwapSetpoints(All(), number_, to), say::kSwapStep, to);
    }
    if (moved) emit Made(to);
}

void ctlSetpointBar::Clear() {
    if (!Apply(ClearSetpoint(All(), number_), say::kClearStep, number_))
        emit session_.Told(Say(Texts(), say::kNothingToClear));
}

}  // namespace calyx::ui
