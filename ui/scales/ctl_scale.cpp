#include "ui/scales/ctl_scale.h"

#include <QGridLayout>
#include <QLabel>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <utility>

#include "model/scales/scale_checks.h"
#include "ui/dialogs/dialogs.h"
#include "ui/form/choice_controls.h"
#include "ui/form/flash.h"
#include "ui/form/form_page.h"
#include "ui/form/form_texts.h"
#include "ui/form/mark.h"
#include "ui/form/page_state.h"
#include "ui/form/words.h"
#include "ui/scales/ctl_scale_source.h"
#include "ui/scales/help_key.h"
#include "ui/scales/scale_texts.h"
#include "ui/text.h"
#include "ui/theme/metrics.h"
#include "ui/theme/theme.h"

namespace calyx::ui {

namespace {

constexpr QLatin1String kHeaderLetters("KS");  // mnemonics of the two texts
constexpr int kKindWidth = 240;

}  // namespace

ctlScale::ctlScale(DocumentSession& session, const ItemRef& scale, const PageTools& tools)
    : session_(session),
      number_(scale.number),
      tools_(tools),
      kindKey_("SC.KIND#" + std::to_string(scale.number)),
      sourceKey_("SC.SRC#" + std::to_string(scale.number)),
      kind_(new form::ChoiceBox),
      source_(new ctlScaleSource(session, scale.number, this)),
      mark_(new form::Mark(this)),
      message_(new QLabel),
      form_(new FormPage(session, scale, nullptr, FormPage::kMenuLetters + kHeaderLetters, {"KIND", "SRC"})) {
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
    setFocusProxy(kind_);
    for (const CTextList::Entry& entry : std::as_const(session_).Document().Scales().Lists().Kinds())
        kind_->addItem(Shown(entry.text), QString::fromStdString(entry.key).toInt());
    connect(kind_, &QComboBox::activated, this, &ctlScale::ChangeKind);
    connect(source_, &ctlScaleSource::Focused, this, [this] { emit KeyFocused(KeyText(sourceKey_)); });
    connect(source_, &ctlScaleSource::ParameterWanted, this, &ctlScale::ParameterWanted);
    connect(&session_, &DocumentSession::Changed, this, &ctlScale::Follow);
    connect(&session_, &DocumentSession::Saved, this, &ctlScale::Follow);
    connect(&session_, &DocumentSession::Replaced, this, &ctlScale::Follow);
    Refresh();
}

QWidget* ctlScale::MakeHeader() {
    const ResourceTexts& texts = session_.Context().texts;
    const CIndicator& document = std::as_const(session_).Document();
    const form::Parameter kind = *form::FindParameter(document, "scales", kindKey_);
    const form::Parameter source = *form::FindParameter(document, "scales", sourceKey_);
    kind_->setObjectName(KeyText(kindKey_));
    kind_->setFixedWidth(kKindWidth);
    kind_->setFocusPolicy(Qt::StrongFocus);
    kind_->installEventFilter(this);
    kind_->setToolTip(form::ToolTip(texts, kind, locale()));
    kind_->setAccessibleDescription(form::Description(texts, kind));
    source_->Describe(form::ToolTip(texts, source, locale()), form::Description(texts, source));
    message_->setObjectName(KeyText(sourceKey_) + QStringLiteral(".message"));
    message_->setFont(TextFont(TextSize::Small));
    message_->setForegroundRole(role::kProblem);
    message_->setWordWrap(true);

    auto* header = new QWidget;
    auto* grid = new QGridLayout(header);
    // The mark stands in the edge, as on the form below.
    const int left = metrics::kPageEdge - metrics::kIconSmall - metrics::kHalf;
    grid->setContentsMargins(left, metrics::kHalf, metrics::kPageEdge, metrics::kRelated);
    grid->setHorizontalSpacing(0);
    grid->setVerticalSpacing(metrics::kRelated);
    grid->setColumnMinimumWidth(1, metrics::kHalf);
    grid->setColumnMinimumWidth(3, metrics::kGroups);
    grid->setColumnStretch(4, 1);
    AddRow(grid, 0, say::kScaleKind, kindKey_, kind_);
    AddRow(grid, 1, say::kScaleSource, sourceKey_, source_);
    grid->addWidget(mark_, 1, 0, Qt::AlignTop);
    auto* below = new QVBoxLayout;
    below->setSpacing(2);
    below->addWidget(source_);
    below->addWidget(message_);
    grid->addLayout(below, 1, 4);
    return header;
}

void ctlScale::AddRow(QGridLayout* grid, int row, int text, const std::string& key, QWidget* control) {
    auto* label = new QLabel(Say(session_.Context().texts, text));
    label->setObjectName(KeyText(key) + QStringLiteral(".label"));
    label->setBuddy(control);
    label->setMinimumHeight(metrics::kControlHeight);
    grid->addWidget(label, row, 2, Qt::AlignTop);
    if (row == 0) grid->addWidget(control, row, 4, Qt::AlignLeft);
}

void ctlScale::Follow() {
    stale_ = true;
    if (isVisible()) Refresh();
}

void ctlScale::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (stale_) Refresh();
}

void ctlScale::Refresh() {
    stale_ = false;
    const CScale& scale = std::as_const(session_).Document().Scales().Scale(number_);
    kind_->setCurrentIndex(kind_->findData(scale.ScaleType()));
    source_->Refresh();
    ShowProblem();
}

// What is wrong with the source, and whether it was changed; a kind has no line of its own.
void ctlScale::ShowProblem() {
    const ResourceTexts& texts = session_.Context().texts;
    const CIndicator& document = std::as_const(session_).Document();
    const auto state = form::PageState::Of(session_, "scales", differing_);
    CBrokenRules ports;
    CheckScalePorts(
        document.Scales(), [&](int port) { return document.Hardware().InputOf(port); }, texts, ports);
    QString problem;
    if (const auto found = state.problems.find(sourceKey_); found != state.problems.end())
        problem = Shown(found->second);
    for (const BrokenRule& rule : ports) {
        if (problem.isEmpty() && rule.item == number_) problem = Shown(rule.text);
    }
    message_->setText(problem);
    message_->setVisible(!problem.isEmpty());

    QStringList words;
    const auto change = state.sinceSave.find(sourceKey_);
    if (change != state.sinceSave.end()) {
        const auto& before = change->second.before;
        words += before ? Say(texts, form::kMarkChanged, ShownValue(*before)) : Say(texts, form::kMarkNew);
    }
    const bool differs = differing_.contains(sourceKey_);
    if (differs) words += Say(texts, form::kMarkDiffers);
    if (!problem.isEmpty()) {
        mark_->Show(IconName::Problem, QStringList(Say(texts, form::kMarkProblem, problem)) + words);
    } else if (!words.isEmpty()) {
        mark_->Show(differs ? IconName::Differs : IconName::Changed, words);
    } else {
        mark_->Clear();
    }
}

bool ctlScale::MayChange(std::int32_t kind) {
    const ResourceTexts& texts = session_.Context().texts;
    const QStringList lost = LostByKind(std::as_const(session_).Document(), number_, kind);
    if (lost.isEmpty()) return true;
    const QString number = QString::number(number_), all = lost.join(QStringLiteral(", "));
    return tools_.ask({Tone::Question,
                       Say(texts, say::kKindTitle),
                       kind == scale_kind::kNone
                           ? Say(texts, say::kKindNoScale, number, all)
                           : Say(texts, say::kKindClears, number, kind_->currentText(), all),
                       {},
                       {Say(texts, say::kChangeKind), Say(texts, say::kKeepKind)},
                       1}) == 0;
}

void ctlScale::ChangeKind() {
    const std::int32_t kind = kind_->currentData().toInt();
    const CScale& scale = std::as_const(session_).Document().Scales().Scale(number_);
    if (kind == scale.ScaleType() || !MayChange(kind)) return Refresh();
    if (const auto refused = session_.SetParameter(kindKey_, std::to_string(kind), false)) {
        emit session_.Told(Shown(*refused));
        Refresh();
    }
}

bool ctlScale::FocusKey(const QString& key) {
    if (stale_) Refresh();
    const bool toKind = key.compare(KeyText(kindKey_), Qt::CaseInsensitive) == 0;
    if (!toKind && key.compare(KeyText(sourceKey_), Qt::CaseInsensitive) != 0) return form_->FocusKey(key);
    QWidget* control = toKind ? static_cast<QWidget*>(kind_) : source_;
    // With nothing to choose, the kind is what decides about the source.
    (toKind || source_->focusProxy() != nullptr ? control : kind_)->setFocus(Qt::OtherFocusReason);
    new form::Flash(control, control, control->parentWidget());
    return true;
}

void ctlScale::SetDiffering(const std::set<std::string>& keys) {
    differing_.clear();
    for (const std::string& key : keys) differing_.insert(Upper(key));
    form_->SetDiffering(keys);
    Follow();
}

bool ctlScale::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusIn) emit KeyFocused(KeyText(kindKey_));
    if (TakeHelpKey(event, PlainCaption(Say(session_.Context().texts, say::kScaleKind)), kind_->toolTip(),
                    kind_))
        return true;
    return QWidget::eventFilter(watched, event);
}

}  // namespace calyx::ui
