#include "ui/hardware/ctl_port.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "ui/dialogs/dialogs.h"
#include "ui/form/form_page.h"
#include "ui/form/page_with_bar.h"
#include "ui/hardware/hardware_texts.h"
#include "ui/text.h"
#include "ui/texts.h"
#include "ui/theme/metrics.h"
#include "ui/theme/theme.h"

namespace calyx::ui {

namespace {

// The names of the control characters, which fonts rarely have pictures for.
QString NameOf(unsigned char c) {
    static const char* const names[] = {"NUL", "SOH", "STX", "ETX", "EOT", "ENQ", "ACK", "BEL",
                                        "BS",  "HT",  "LF",  "VT",  "FF",  "CR",  "SO",  "SI",
                                        "DLE", "DC1", "DC2", "DC3", "DC4", "NAK", "SYN", "ETB",
                                        "CAN", "EM",  "SUB", "ESC", "FS",  "GS",  "RS",  "US"};
    return QLatin1String(c < 32 ? names[c] : "DEL");
}

// Nothing that is sent stays unseen: control characters by their names, blanks as a bracket.
QString Pictures(const std::vector<StreamPiece>& pieces) {
    QString shown;
    for (const StreamPiece& piece : pieces) {
        if (piece.kind == StreamPiece::Kind::Control) {
            shown +=
                QLatin1Char('[') + NameOf(static_cast<unsigned char>(piece.text.front())) + QLatin1Char(']');
        } else {
            QString text = ShownValue(piece.text);
            shown += text.replace(QLatin1Char(' '), QChar(0x2423));
        }
    }
    return shown;
}

}  // namespace

ctlPort::ctlPort(DocumentSession& session, const ItemRef& port, const PageTools& tools)
    : session_(session),
      port_(port.number),
      tools_(tools),
      saved_(session.Context(), tools.streamsFile),
      form_(MakePage(session, port)),
      sample_(new QLabel),
      notSent_(new QLabel),
      weight_(new QLineEdit(QStringLiteral("1234.5"))),
      mode_(new QComboBox),
      state_(new QComboBox),
      names_(new QComboBox) {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(new PageWithBar(form_, MakeStreamBar(), PageWithBar::Edge::Bottom));
    setFocusProxy(form_);
    connect(&session_, &DocumentSession::Changed, this, &ctlPort::ShowSample);
    connect(&session_, &DocumentSession::Replaced, this, &ctlPort::ShowSample);
    ShowSample();
}

QWidget* ctlPort::MakeStreamBar() {
    const ResourceTexts& texts = session_.Context().texts;
    const auto label = [&](int text, QWidget* buddy) {
        auto* made = new QLabel(Say(texts, text));
        made->setBuddy(buddy);
        return made;
    };
    sample_->setObjectName(QStringLiteral("streamSample"));
    sample_->setFont(FixedFont());
    sample_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    sample_->setAccessibleName(Say(texts, say::kSampleName));
    weight_->setObjectName(QStringLiteral("sampleWeight"));
    weight_->setFixedWidth(96);
    weight_->setAlignment(Qt::AlignRight);
    for (const int text : {say::kGross, say::kNet, say::kTare}) mode_->addItem(Say(texts, text));
    for (const int text :
         {say::kStateOk, say::kStateMotion, say::kStateRange, say::kStateZero, say::kStateInvalid})
        state_->addItem(Say(texts, text));
    mode_->setObjectName(QStringLiteral("sampleMode"));
    state_->setObjectName(QStringLiteral("sampleState"));
    names_->setObjectName(QStringLiteral("savedFormats"));
    names_->setEditable(true);
    names_->setInsertPolicy(QComboBox::NoInsert);
    names_->setMinimumWidth(160);
    names_->lineEdit()->setMaxLength(static_cast<int>(SavedStreams::kNameWidth));
    connect(weight_, &QLineEdit::textChanged, this, &ctlPort::ShowSample);
    connect(mode_, &QComboBox::currentIndexChanged, this, &ctlPort::ShowSample);
    connect(state_, &QComboBox::currentIndexChanged, this, &ctlPort::ShowSample);

    const auto button = [&](int text, const char* name, void (ctlPort::*act)()) {
        auto* made = new QPushButton(Say(texts, text));
        made->setObjectName(QLatin1String(name));
        made->setAutoDefault(false);
        connect(made, &QPushButton::clicked, this, act);
        return made;
    };
    auto* first = new QHBoxLayout;
    first->setSpacing(metrics::kRelated);
    first->addWidget(label(say::kSampleOf, weight_));
    first->addWidget(weight_);
    first->addWidget(mode_);
    first->addWidget(state_);
    first->addSpacing(metrics::kRelated);
    first->addWidget(sample_, 1);
    auto* second = new QHBoxLayout;
    second->setSpacing(metrics::kRelated);
    second->addWidget(label(say::kSavedFormats, names_));
    second->addWidget(names_);
    second->addWidget(button(say::kLoadFormat, "cmdLoadFormat", &ctlPort::LoadFormat));
    second->addWidget(button(say::kSaveFormat, "cmdSaveFormat", &ctlPort::SaveFormat));
    second->addWidget(button(say::kDeleteFormat, "cmdDeleteFormat", &ctlPort::DeleteFormat));
    second->addStretch(1);
    auto* rule = new QWidget;
    rule->setFixedHeight(1);
    rule->setAutoFillBackground(true);
    rule->setBackgroundRole(role::kDivider);
    auto* bar = new QWidget;
    auto* rows = new QVBoxLayout(bar);
    rows->setContentsMargins(metrics::kPageEdge, 0, metrics::kPageEdge, metrics::kRelated);
    rows->setSpacing(metrics::kRelated);
    rows->addWidget(rule);
    notSent_->setObjectName(QStringLiteral("notSent"));
    notSent_->setForegroundRole(role::kQuietText);
    notSent_->setFont(TextFont(TextSize::Small));
    notSent_->setWordWrap(true);
    rows->addLayout(first);
    rows->addLayout(second);
    rows->addWidget(notSent_);
    return bar;
}

const StreamFields& ctlPort::Stream() const {
    return std::as_const(session_).Document().Hardware().CommPort(port_).Stream().Values();
}

void ctlPort::ShowSample() {
    const CHardware& hardware = std::as_const(session_).Document().Hardware();
    if (!hardware.HasPort(port_)) return;  // gone with its card; the page goes too
    SampleWeight weight;
    QString typed = weight_->text();
    typed.replace(QLatin1Char(','), QLatin1Char('.'));
    weight.value = typed.toDouble();
    const qsizetype point = typed.indexOf(QLatin1Char('.'));
    weight.decimals = point < 0 ? 0 : static_cast<int>(std::min<qsizetype>(6, typed.size() - point - 1));
    weight.mode = static_cast<SampleWeight::Mode>(mode_->currentIndex());
    weight.state = static_cast<SampleWeight::State>(state_->currentIndex());
    const bool own = hardware.CommPort(port_).Values().UsesStreamDefinition();
    StreamFields usual;
    if (!own) {
        CStream fresh(session_.Context());
        fresh.Initialize(port_);
        usual = fresh.Values();
    }
    ShowWhetherSent();
    sample_->setText(Pictures(StreamSample(own ? Stream() : usual, weight)));
    sample_->setToolTip(Say(session_.Context().texts, own ? say::kSampleOwn : say::kSampleUsual));
}

// The sample is of what would be sent; whether it is sent at all stands beside it.
void ctlPort::ShowWhetherSent() {
    const ResourceTexts& texts = session_.Context().texts;
    const CCommPort& port = std::as_const(session_).Document().Hardware().CommPort(port_);
    const PortFields& fields = port.Values();
    const std::string* input = port.InputTypes().Item(port.InputType());
    const bool sends = fields.CanStream() && fields.Streams();
    if (!sends)
        notSent_->setText(fields.CanStream() ? Say(texts, hardware_text::kNothingSent)
                                             : Say(texts, hardware_text::kCannotStream,
                                                   Shown(input == nullptr ? port.InputType() : *input)));
    notSent_->setVisible(!sends);
    sample_->setForegroundRole(sends ? role::kText : role::kQuietText);
}

void ctlPort::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    FillNames();  // another port's page, or another program, may have saved some
}

void ctlPort::FillNames() {
    Try([&] {
        const QString typed = names_->currentText();
        names_->clear();
        for (const std::string& name : saved_.Names()) names_->addItem(Shown(name));
        names_->setCurrentText(typed);
    });
}

template <class Act>
void ctlPort::Try(Act&& act) {
    try {
        act();
    } catch (const Error& error) {
        emit session_.Told(Shown(error.Description()));
    }
}

void ctlPort::LoadFormat() {
    Try([&] {
        const ResourceTexts& texts = session_.Context().texts;
        const std::string name = ValueBytes(names_->currentText(), {});
        const auto stream = name.empty() ? std::nullopt : saved_.Load(name);
        if (!stream) return emit session_.Told(Say(texts, say::kNoSuchFormat, names_->currentText()));
        CStream loaded(session_.Context());
        loaded.Initialize(port_);
        loaded.Assign(*stream);
        session_.Edit(ReadLines(loaded.StoreState()),
                      texts.Format(say::kLoadStep, {std::to_string(port_), name}));
    });
}

void ctlPort::SaveFormat() {
    Try([&] {
        const ResourceTexts& texts = session_.Context().texts;
        const std::string name = ValueBytes(names_->currentText(), {});
        if (saved_.Has(name) && tools_.ask({Tone::Question,
                                            Say(texts, say::kSaveFormatTitle),
                                            Say(texts, say::kReplaceFormat, names_->currentText()),
                                            {},
                                            {Say(texts, say::kReplaceIt), Say(texts, say::kKeepFormat)},
                                            1}) != 0) {
            return;
        }
        saved_.Save(name, Stream());
        FillNames();
        emit session_.Told(Say(texts, say::kFormatSaved, names_->currentText()));
    });
}

void ctlPort::DeleteFormat() {
    Try([&] {
        const ResourceTexts& texts = session_.Context().texts;
        const QString shown = names_->currentText();
        const std::string name = ValueBytes(shown, {});
        if (name.empty() || !saved_.Has(name))
            return emit session_.Told(Say(texts, say::kNoSuchFormat, shown));
        if (tools_.ask({Tone::Question,
                        Say(texts, say::kDeleteFormatTitle),
                        Say(texts, say::kDeleteFormatQuestion, shown),
                        {},
                        {Say(texts, say::kDeleteIt), Say(texts, say::kKeepFormat)},
                        1}) != 0) {
            return;
        }
        saved_.Remove(name);
        names_->setCurrentText({});
        FillNames();
    });
}

}  // namespace calyx::ui
