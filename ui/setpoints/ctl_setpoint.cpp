#include "ui/setpoints/ctl_setpoint.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>
#include <utility>

#include "model/setpoints/setpoint_edits.h"
#include "model/setpoints/setpoint_sentence.h"
#include "ui/dialogs/dialogs.h"
#include "ui/form/form_page.h"
#include "ui/setpoints/ctl_trip_drawing.h"
#include "ui/setpoints/setpoint_texts.h"
#include "ui/text.h"
#include "ui/theme/metrics.h"
#include "ui/theme/theme.h"

namespace calyx::ui {

namespace {

constexpr QLatin1String kHeaderLetters("NDMC");  // mnemonics of the bar
constexpr int kSentenceLines = 3;                // room for most, so that the page does not jump

QString KindKey(int number) {
    return KeyText(SetpointKey("KIND", number));
}

}  // namespace

ctlSetpoint::ctlSetpoint(DocumentSession& session, const ItemRef& setpoint, const PageTools& tools)
    : session_(session),
      number_(setpoint.number),
      tools_(tools),
      sentence_(new QLabel),
      drawing_(new ctlTripDrawing(session.Context().texts, this)),
      target_(new QSpinBox),
      targetState_(new QLabel),
      form_(new FormPage(session, setpoint, nullptr, FormPage::kMenuLetters + kHeaderLetters)) {
    auto* rule = new QWidget;
    rule->setFixedHeight(1);
    rule->setAutoFillBackground(true);
    rule->setBackgroundRole(role::kDivider);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(MakeHeader());
    column->addWidget(rule);
    column->addWidget(form_, 1);
    setFocusProxy(form_);
    connect(&session_, &DocumentSession::Changed, this, &ctlSetpoint::Follow);
    connect(&session_, &DocumentSession::Replaced, this, &ctlSetpoint::Follow);
    Refresh();
}

QWidget* ctlSetpoint::MakeHeader() {
    sentence_->setObjectName(QStringLiteral("setpointSentence"));
    sentence_->setAccessibleName(Say(Texts(), say::kSentenceName));
    sentence_->setTextFormat(Qt::PlainText);
    sentence_->setWordWrap(true);
    sentence_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    sentence_->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    sentence_->setMinimumHeight(kSentenceLines * sentence_->fontMetrics().lineSpacing());
    auto* words = new QVBoxLayout;
    words->setSpacing(metrics::kRelated);
    words->addWidget(sentence_, 1);
    words->addWidget(MakeBar());
    auto* header = new QWidget;
    auto* row = new QHBoxLayout(header);
    row->setContentsMargins(metrics::kPageEdge, metrics::kHalf, metrics::kPageEdge, metrics::kRelated);
    row->setSpacing(metrics::kPageEdge);
    row->addLayout(words, 1);
    row->addWidget(drawing_, 0, Qt::AlignTop);
    return header;
}

QPushButton* ctlSetpoint::MakeButton(int text, int tip, const char* name, void (ctlSetpoint::*act)()) {
    auto* button = new QPushButton(Say(Texts(), text));
    button->setObjectName(QLatin1String(name));
    button->setToolTip(Say(Texts(), tip));
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, act);
    return button;
}

QWidget* ctlSetpoint::MakeBar() {
    auto* label = new QLabel(Say(Texts(), say::kToNumber));
    label->setBuddy(target_);
    target_->setObjectName(QStringLiteral("targetNumber"));
    target_->setRange(1, kSetpoints);
    target_->setValue(FirstFree());
    connect(target_, &QSpinBox::valueChanged, this, &ctlSetpoint::ShowTarget);
    targetState_->setForegroundRole(role::kQuietText);
    auto* bar = new QWidget;
    auto* row = new QHBoxLayout(bar);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(metrics::kRelated);
    row->addWidget(label);
    row->addWidget(target_);
    row->addWidget(MakeButton(say::kDuplicate, say::kDuplicateTip, "cmdDuplicate", &ctlSetpoint::Duplicate));
    row->addWidget(MakeButton(say::kMove, say::kMoveTip, "cmdMove", &ctlSetpoint::Move));
    row->addWidget(targetState_);
    row->addStretch(1);
    row->addWidget(MakeButton(say::kClear, say::kClearTip, "cmdClear", &ctlSetpoint::Clear));
    return bar;
}

const CSetpoints& ctlSetpoint::All() const {
    return std::as_const(session_).Document().Setpoints();
}

bool ctlSetpoint::IsFree(int number) const {
    return All().Item(number).Values().IsOff();
}

int ctlSetpoint::FirstFree() const {
    for (int step = 1; step < kSetpoints; ++step) {
        const int number = (number_ - 1 + step) % kSetpoints + 1;
        if (IsFree(number)) return number;
    }
    return number_;
}

void ctlSetpoint::Follow() {
    stale_ = true;
    if (isVisible()) Refresh();
}

void ctlSetpoint::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (stale_) Refresh();
}

void ctlSetpoint::Refresh() {
    stale_ = false;
    sentence_->setText(Shown(SetpointSentence(All().Item(number_), Texts())));
    const auto picture = PictureOf(All(), number_);
    drawing_->setVisible(picture.has_value());
    if (picture) drawing_->Show(*picture);
    ShowTarget();
}

// What stands under the number that a command would use.
void ctlSetpoint::ShowTarget() {
    const SetpointKind kind = All().Item(target_->value()).Values().kind;
    targetState_->setText(Say(Texts(), kind == SetpointKind::Off ? say::kFree : KindName(kind)));
}

QString ctlSetpoint::InUse(int number) const {
    return Say(Texts(), say::kInUse, QString::number(number),
               Shown(SetpointSentence(All().Item(number), Texts())));
}

bool ctlSetpoint::Apply(const std::vector<Change>& changes, int name, int other) {
    if (changes.empty()) return false;
    ChangeSet set;
    for (const Change& change : changes) set.Add(change);
    session_.Do(Texts().Format(name, {std::to_string(number_), std::to_string(other)}),
                [&](CIndicator& document) { return document.Apply(set); });
    return true;
}

void ctlSetpoint::Duplicate() {
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
    if (Apply(DuplicateSetpoint(All(), number_, to), say::kDuplicateStep, to))
        emit ParameterWanted(KindKey(to));
}

void ctlSetpoint::Move() {
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
    if (moved) emit ParameterWanted(KindKey(to));
}

void ctlSetpoint::Clear() {
    if (!Apply(ClearSetpoint(All(), number_), say::kClearStep, number_))
        emit session_.Told(Say(Texts(), say::kNothingToClear));
}

}  // namespace calyx::ui
