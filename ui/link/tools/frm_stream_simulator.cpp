#include "ui/link/tools/frm_stream_simulator.h"

#include <QComboBox>
#include <QLineEdit>
#include <QLocale>
#include <QSpinBox>
#include <algorithm>

#include "model/language/text.h"
#include "ui/link/connect/ctl_serial.h"
#include "ui/link/dialog_parts.h"
#include "ui/link/tools/tool_texts.h"
#include "ui/texts.h"
#include "ui/theme/theme.h"

namespace calyx::ui {

using namespace tool_text;

namespace {
constexpr int kPorts = 32;
constexpr int kLeastMs = 50, kUsualMs = 200, kMostMs = 60'000;
constexpr int kWeightsWidth = 320;
}  // namespace

frmStreamSimulator::frmStreamSimulator(AppContext& app, DocumentSession& session, QWidget* parent)
    : QDialog(parent),
      app_(app),
      session_(session),
      transports_(app.model.texts, clock_),
      simulator_(transports_, clock_),
      serial_(new ctlSerial(app.model.texts, ctlSerial::Use::Plain)),
      port_(new QComboBox),
      mode_(new QComboBox),
      state_(new QComboBox),
      units_(new QComboBox),
      weights_(new QLineEdit(QStringLiteral("1234.5"))),
      every_(new QSpinBox),
      last_(new QLabel),
      note_(MakeNote("lblNote")),
      start_(MakeButton(app.model.texts, kStart, "cmdStart")) {
    setObjectName(QStringLiteral("frmStreamSimulator"));
    setWindowTitle(Text(kStreamTitle));
    setAttribute(Qt::WA_DeleteOnClose);
    MakeControls();
    auto* words = MakeNote("lblWords");
    words->setText(Text(kStreamWords));
    QPushButton* close = MakeButton(app.model.texts, say::kCloseMnemonic, "cmdClose");
    start_->setDefault(true);
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(metrics::kRelated);
    buttons->addStretch();
    buttons->addWidget(start_);
    buttons->addWidget(close);
    QVBoxLayout* all = MakeColumn(*this);
    all->addWidget(words);
    all->addWidget(serial_);
    all->addLayout(MakeFields());
    all->addWidget(last_);
    all->addWidget(note_);
    all->addStretch();
    all->addLayout(buttons);
    connect(start_, &QPushButton::clicked, this, &frmStreamSimulator::StartOrStop);
    connect(close, &QPushButton::clicked, this, &frmStreamSimulator::reject);
    connect(&next_, &QTimer::timeout, this, &frmStreamSimulator::Poll);
    const auto follow = [this] {
        AddPorts();
        if (simulator_.IsRunning()) Follow();
    };
    connect(&session_, &DocumentSession::Changed, this, follow);
    connect(&session_, &DocumentSession::Replaced, this, follow);
    next_.setSingleShot(true);
    AddPorts();
    ShowSettings();
    ShowRunning();
}

QString frmStreamSimulator::Text(int number) const {
    return Say(app_.model.texts, number);
}

void frmStreamSimulator::MakeControls() {
    port_->setObjectName(QStringLiteral("cboDefinition"));
    weights_->setObjectName(QStringLiteral("txtWeights"));
    weights_->setFixedWidth(kWeightsWidth);
    weights_->setToolTip(Text(kWeightsTip));
    mode_->setObjectName(QStringLiteral("cboMode"));
    state_->setObjectName(QStringLiteral("cboState"));
    units_->setObjectName(QStringLiteral("cboUnits"));
    mode_->addItems({Text(say::kGross), Text(say::kNet), Text(say::kTare)});
    state_->addItems({Text(say::kStateOk), Text(say::kStateMotion), Text(say::kStateRange),
                      Text(say::kStateZero), Text(say::kStateInvalid)});
    units_->addItems({Text(kPrimary), Text(kSecondary), Text(kTertiary)});
    every_->setObjectName(QStringLiteral("txtEvery"));
    every_->setRange(kLeastMs, kMostMs);
    every_->setValue(kUsualMs);
    every_->setSuffix(QStringLiteral(" ms"));
    last_->setObjectName(QStringLiteral("lblLast"));
    last_->setFont(FixedFont());
    last_->setTextFormat(Qt::PlainText);
    last_->setAccessibleName(Text(kLast));
    last_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    const auto follow = [this] {
        if (simulator_.IsRunning()) Follow();
    };
    for (QComboBox* choice : {port_, mode_, state_, units_})
        connect(choice, &QComboBox::activated, this, follow);
    connect(weights_, &QLineEdit::editingFinished, this, follow);
}

QLayout* frmStreamSimulator::MakeFields() {
    auto* fields = new QGridLayout;
    fields->setHorizontalSpacing(metrics::kGroups);
    fields->setVerticalSpacing(metrics::kRelated);
    fields->setColumnStretch(1, 1);
    AddField(*fields, 0, Text(kDefinition), port_);
    AddField(*fields, 1, Text(kWeights), weights_);
    AddField(*fields, 2, Text(kMode), mode_);
    AddField(*fields, 3, Text(kState), state_);
    AddField(*fields, 4, Text(kUnits), units_);
    AddField(*fields, 5, Text(kEvery), every_);
    return fields;
}

// The ports of the configuration; the one that was chosen stays so while it is there.
void frmStreamSimulator::AddPorts() {
    const CHardware& hardware = std::as_const(session_).Document().Hardware();
    const QVariant before = port_->currentData();
    port_->clear();
    for (int number = 1; number <= kPorts; ++number) {
        if (!hardware.HasPort(number) || !hardware.CommPort(number).Values().CanStream()) continue;
        const std::string alias =
            session_.Document().Value("EDP.ALIAS#" + std::to_string(number)).value_or(std::string());
        port_->addItem(Say(app_.model.texts, kPortName, QString::number(number), ShownValue(alias)), number);
    }
    port_->setCurrentIndex(std::max(0, port_->findData(before)));
}

void frmStreamSimulator::ShowSettings() {
    const Settings& settings = app_.settings;
    LinkSettings serial;
    serial.port = settings.StreamSimPort;
    serial.baud = settings.StreamSimBaud;
    serial.parity = settings.StreamSimParity;
    serial.dataBits = settings.StreamSimDataBits;
    serial.stopBits = settings.StreamSimStopBits;
    serial_->Show(serial);
}

void frmStreamSimulator::KeepSettings() {
    LinkSettings serial;
    serial_->Take(serial);
    app_.settings.StreamSimPort = serial.port;
    app_.settings.StreamSimBaud = serial.baud;
    app_.settings.StreamSimParity = serial.parity;
    app_.settings.StreamSimDataBits = serial.dataBits;
    app_.settings.StreamSimStopBits = serial.stopBits;
}

std::optional<std::vector<SampleWeight>> frmStreamSimulator::Weights() const {
    constexpr qsizetype kMostDecimals = 6;
    std::vector<SampleWeight> weights;
    for (QString word : weights_->text().split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        word.replace(QLatin1Char(','), QLatin1Char('.'));
        bool isNumber = false;
        SampleWeight weight;
        weight.value = word.toDouble(&isNumber);
        if (!isNumber) return std::nullopt;
        const qsizetype point = word.indexOf(QLatin1Char('.'));
        weight.decimals = point < 0 ? 0 : static_cast<int>(std::min(kMostDecimals, word.size() - point - 1));
        weight.units = units_->currentIndex() + 1;
        weight.mode = static_cast<SampleWeight::Mode>(mode_->currentIndex());
        weight.state = static_cast<SampleWeight::State>(state_->currentIndex());
        weights.push_back(weight);
    }
    if (weights.empty()) return std::nullopt;
    return weights;
}

// False: what is chosen cannot be sent, and why is told.
bool frmStreamSimulator::Follow() {
    const auto weights = Weights();
    const int number = port_->currentData().toInt();
    if (number == 0 || !weights) {
        ShowNote(*note_, Text(number == 0 ? kNoPorts : kWrongWeights), true);
        return false;
    }
    const CCommPort& port = std::as_const(session_).Document().Hardware().CommPort(number);
    StreamFields stream = port.Stream().Values();
    if (!port.Values().UsesStreamDefinition()) {
        CStream usual(session_.Context());
        usual.Initialize(number);
        stream = usual.Values();
    }
    simulator_.Set(stream, *weights);
    return true;
}

void frmStreamSimulator::StartOrStop() {
    if (simulator_.IsRunning()) {
        simulator_.Stop();
        return ShowRunning();
    }
    if (!serial_->HasPort()) return serial_->FocusPort();
    if (!Follow()) return;
    KeepSettings();
    LinkSettings serial;
    serial_->Take(serial);
    try {
        simulator_.Start(serial.port,
                         serial.baud + "," + serial.parity + "," + serial.dataBits + "," + serial.stopBits,
                         every_->value());
        ShowRunning();
        Poll();
    } catch (const Error& error) {
        app_.Record(error);
        ShowNote(*note_, Shown(error.Description()), true);
    }
}

void frmStreamSimulator::Poll() {
    const std::string sent = simulator_.Poll();
    if (!simulator_.IsRunning()) {
        ShowRunning();
        return ShowNote(*note_, Text(kGone), true);
    }
    if (!sent.empty()) {
        last_->setText(ShownValue(sent));
        ShowNote(*note_,
                 Say(app_.model.texts, kSent, QLocale().toString(static_cast<qulonglong>(simulator_.Sent()))),
                 false);
    }
    next_.start(simulator_.UntilNext());
}

void frmStreamSimulator::ShowRunning() {
    const bool runs = simulator_.IsRunning();
    start_->setText(Text(runs ? kStop : kStart));
    serial_->setEnabled(!runs);
    every_->setEnabled(!runs);
    if (runs) return;
    next_.stop();
    ShowNote(*note_, Text(kNotSending), false);
}

}  // namespace calyx::ui
