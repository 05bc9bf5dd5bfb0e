#include "ui/setpoints/ctl_setpoint.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>
#include <utility>

#include "model/setpoints/setpoint_sentence.h"
#include "ui/form/form_page.h"
#include "ui/form/page_with_bar.h"
#include "ui/setpoints/ctl_setpoint_bar.h"
#include "ui/setpoints/ctl_trip_drawing.h"
#include "ui/setpoints/setpoint_texts.h"
#include "ui/text.h"
#include "ui/theme/metrics.h"
#include "ui/theme/theme.h"

namespace calyx::ui {

namespace {

constexpr QLatin1String kHeaderLetters("NDMC");  // mnemonics of the bar
constexpr int kSentenceLines = 3;                // room for most, so that the page does not jump

}  // namespace

ctlSetpoint::ctlSetpoint(DocumentSession& session, const ItemRef& setpoint, const PageTools& tools)
    : session_(session),
      number_(setpoint.number),
      sentence_(new QLabel),
      drawing_(new ctlTripDrawing(session.Context().texts, this)),
      bar_(new ctlSetpointBar(session, tools)),
      form_(new FormPage(session, setpoint, nullptr, FormPage::kMenuLetters + kHeaderLetters)) {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(new PageWithBar(form_, MakeHeader(), PageWithBar::Edge::Top));
    setFocusProxy(form_);
    bar_->SetNumber(number_);
    connect(bar_, &ctlSetpointBar::Made, this,
            [this](int number) { emit ParameterWanted(KeyText(SetpointKey("KIND", number))); });
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
    words->addWidget(bar_);
    auto* row = new QHBoxLayout;
    row->setContentsMargins(metrics::kPageEdge, metrics::kHalf, metrics::kPageEdge, metrics::kRelated);
    row->setSpacing(metrics::kPageEdge);
    row->addLayout(words, 1);
    row->addWidget(drawing_, 0, Qt::AlignTop);
    auto* rule = new QWidget;
    rule->setFixedHeight(1);
    rule->setAutoFillBackground(true);
    rule->setBackgroundRole(role::kDivider);
    auto* header = new QWidget;
    auto* column = new QVBoxLayout(header);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addLayout(row);
    column->addWidget(rule);
    return header;
}

const CSetpoints& ctlSetpoint::All() const {
    return std::as_const(session_).Document().Setpoints();
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
    const bool off = All().Item(number_).Values().IsOff();
    sentence_->setText(off ? Say(Texts(), say::kSetpointOff)
                           : Shown(SetpointSentence(All().Item(number_), Texts())));
    const auto picture = PictureOf(All(), number_);
    drawing_->setVisible(picture.has_value());
    if (picture) drawing_->Show(*picture);
    bar_->Refresh();
}

}  // namespace calyx::ui
