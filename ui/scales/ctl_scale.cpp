#include "ui/scales/ctl_scale.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>
#include <utility>

#include "model/language/text.h"
#include "ui/dialogs/dialogs.h"
#include "ui/form/choice_controls.h"
#include "ui/form/field.h"
#include "ui/form/flash.h"
#include "ui/form/form_page.h"
#include "ui/form/page_state.h"
#include "ui/scales/ctl_scale_source.h"
#include "ui/scales/scale_choices.h"
#include "ui/scales/scale_texts.h"
#include "ui/text.h"
#include "ui/theme/metrics.h"
#include "ui/theme/theme.h"

namespace calyx::ui {

namespace {

constexpr QLatin1String kHeaderLetters("K");  // mnemonic of the kind

using MayChangeKind = std::function<bool(std::int32_t kind)>;

// The kind; asks before it clears what the present one has.
class KindControl final : public form::ChoiceControl {
  public:
    KindControl(const CTextList& kinds, QWidget* parent, MayChangeKind mayChange)
        : ChoiceControl(kinds, parent), mayChange_(std::move(mayChange)) {}

    bool MayTake(const std::string& text) override {
        const auto kind = ReadInteger(text);
        return !kind || mayChange_(kind->value);
    }

  private:
    MayChangeKind mayChange_;
};

// The source, edited by ctlScaleSource, which changes the document itself.
class SourceControl final : public form::Control {
  public:
    SourceControl(ctlScaleSource* source, MayChangeKind mayChange)
        : source_(source), mayChange_(std::move(mayChange)) {}

    QWidget* Widget() const override { return source_; }
    void Show(const std::string& text) override {
        text_ = text;
        source_->Refresh();
    }
    form::Entry Read(bool) const override { return {.text = text_}; }
    // Without a source the scale is not configured.
    bool MayTake(const std::string&) override { return mayChange_(scale_kind::kNone); }

  private:
    ctlScaleSource* source_;
    MayChangeKind mayChange_;
    std::string text_;
};

}  // namespace

ctlScale::ctlScale(DocumentSession& session, const ItemRef& scale, const PageTools& tools)
    : session_(session), number_(scale.number), tools_(tools) {
    auto* rule = new QWidget;
    rule->setFixedHeight(1);
    rule->setAutoFillBackground(true);
    rule->setBackgroundRole(role::kDivider);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(MakeHeader());
    column->addWidget(rule);
    form_ = new FormPage(
        session, scale, nullptr, FormPage::kMenuLetters + kHeaderLetters, {"KIND"},
        [this](const auto& parameter, QWidget* parent) { return MakeControl(parameter, parent); });
    column->addWidget(form_, 1);
    setFocusProxy(kind_->ControlWidget());
    connect(&session_, &DocumentSession::Changed, this, [this] { Follow(false); });
    connect(&session_, &DocumentSession::Settled, this, [this] { Follow(false); });
    connect(&session_, &DocumentSession::Saved, this, [this] { Follow(false); });
    connect(&session_, &DocumentSession::Replaced, this, [this] { Follow(true); });
    Refresh();
}

ctlScale::~ctlScale() = default;

std::unique_ptr<form::Control> ctlScale::MakeControl(const form::Parameter& parameter, QWidget* parent) {
    const MayChangeKind mayChange = [this](std::int32_t kind) { return MayChange(kind); };
    const std::string_view stem = parameter.Info().stem;
    if (stem == "KIND") return std::make_unique<KindControl>(*parameter.List(), parent, mayChange);
    if (stem != "SRC") return nullptr;
    source_ = new ctlScaleSource(session_, number_, parent);
    connect(source_, &ctlScaleSource::ParameterWanted, this, &ctlScale::ParameterWanted);
    return std::make_unique<SourceControl>(source_, mayChange);
}

QWidget* ctlScale::MakeHeader() {
    auto* header = new QWidget;
    kind_ = std::make_unique<form::Field>(
        session_, "scales", "SC.KIND#" + std::to_string(number_), header,
        [this](const auto& parameter, QWidget* parent) { return MakeControl(parameter, parent); });
    kind_->SetCaption(Say(session_.Context().texts, say::kScaleKind));
    connect(kind_.get(), &form::Field::Focused, this, &ctlScale::KeyFocused);
    auto* row = new QHBoxLayout;
    row->setSpacing(0);
    row->addWidget(kind_->MarkWidget());
    row->addSpacing(metrics::kHalf);
    row->addWidget(kind_->Label());
    row->addSpacing(metrics::kGroups);
    row->addWidget(kind_->ControlWidget());
    row->addStretch(1);
    auto* column = new QVBoxLayout(header);
    // The mark stands in the edge, as on the form below.
    const int left = metrics::kPageEdge - metrics::kIconSmall - metrics::kHalf;
    column->setContentsMargins(left, metrics::kHalf, metrics::kPageEdge, metrics::kRelated);
    column->setSpacing(2);
    column->addLayout(row);
    column->addWidget(kind_->Message());
    return header;
}

void ctlScale::Follow(bool anew) {
    stale_ = true;
    staleAnew_ = staleAnew_ || anew;
    if (isVisible()) Refresh();
}

void ctlScale::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (stale_) Refresh();
}

void ctlScale::Refresh() {
    stale_ = false;
    kind_->Refresh(form::PageState::Of(session_, "scales", differing_), std::exchange(staleAnew_, false));
}

bool ctlScale::MayChange(std::int32_t kind) {
    const CIndicator& document = std::as_const(session_).Document();
    if (kind == document.Scales().Scale(number_).ScaleType()) return true;
    const ResourceTexts& texts = session_.Context().texts;
    const QStringList lost = LostByKind(document, number_, kind);
    if (lost.isEmpty()) return true;
    const std::string* name = document.Scales().Lists().Kinds().Item(std::to_string(kind));
    const QString number = QString::number(number_), all = lost.join(QStringLiteral(", "));
    return tools_.ask({Tone::Question,
                       Say(texts, say::kKindTitle),
                       kind == scale_kind::kNone
                           ? Say(texts, say::kKindNoScale, number, all)
                           : Say(texts, say::kKindClears, number, Shown(name == nullptr ? "" : *name), all),
                       {},
                       {Say(texts, say::kChangeKind), Say(texts, say::kKeepKind)},
                       1}) == 0;
}

bool ctlScale::FocusKey(const QString& key) {
    if (stale_) Refresh();
    const bool noChoice =
        !source_->HasChoice() && key.compare(source_->objectName(), Qt::CaseInsensitive) == 0;
    if (!kind_->Covers(KeyBytes(key)) && !noChoice && form_->FocusKey(key)) return true;
    // The kind decides which fields and sources there are, so it is what to go to for one that is not there.
    QWidget* control = kind_->ControlWidget();
    control->setFocus(Qt::OtherFocusReason);
    new form::Flash(kind_->Label(), control, control->parentWidget());
    return true;
}

void ctlScale::SetDiffering(const std::set<std::string>& keys) {
    differing_.clear();
    for (const std::string& key : keys) differing_.insert(Upper(key));
    form_->SetDiffering(keys);
    Follow(false);
}

}  // namespace calyx::ui
