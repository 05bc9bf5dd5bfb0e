#include "ui/link/frm_connect.h"

#include <QLineEdit>
#include <QProgressBar>
#include <QRadioButton>
#include <QScopeGuard>

#include "comm/detection.h"
#include "comm/link_texts.h"
#include "ui/link/connect/connect_texts.h"
#include "ui/link/connect/ctl_serial.h"
#include "ui/link/dialog_parts.h"
#include "ui/texts.h"

namespace calyx::ui {

namespace {

constexpr int kNoteWidth = 560;
constexpr int kHostWidth = 240;
constexpr int kPortWidth = 80;

QString FramingWords(const LinkSettings& wire) {
    return Shown(wire.baud + "," + wire.parity + "," + wire.dataBits + "," + wire.stopBits);
}

}  // namespace

frmConnect::frmConnect(AppContext& app, LinkDesk& desk, QWidget* parent)
    : QDialog(parent),
      app_(app),
      desk_(desk),
      serialWay_(new QRadioButton(Text(connect_text::kSerial))),
      tcpWay_(new QRadioButton(Text(connect_text::kTcp))),
      serial_(new ctlSerial(app.model.texts)),
      host_(new QLineEdit),
      port_(new QLineEdit),
      connect_(MakeButton(app.model.texts, say::kConnectNow, "cmdConnect")),
      simulated_(MakeButton(app.model.texts, say::kUseSimulated, "cmdSimulated")),
      cancel_(MakeButton(app.model.texts, say::kCancel, "cmdCancel")),
      progress_(new QProgressBar),
      note_(MakeNote("lblNote")) {
    setObjectName(QStringLiteral("frmConnect"));
    setWindowTitle(Text(say::kConnectTitle));
    setAttribute(Qt::WA_DeleteOnClose);
    MakeControls();
    MakeLayout();
    const LinkSettings settings = desk.Settings();
    serial_->Show(settings);
    host_->setText(Shown(settings.host));
    port_->setText(QString::number(settings.tcpPort));
    const bool tcp = settings.method == comm_method::kTcp;
    (tcp ? tcpWay_ : serialWay_)->setChecked(true);
    (tcp ? static_cast<QWidget*>(host_) : connect_)->setFocus();
    ShowWay();
    Say(Text(say::kSimulatedHint), false);
    SetWorking(false);

    connect(connect_, &QPushButton::clicked, this, &frmConnect::Connect);
    connect(simulated_, &QPushButton::clicked, this, &frmConnect::ConnectSimulated);
    connect(cancel_, &QPushButton::clicked, this, &frmConnect::reject);
    connect(serial_, &ctlSerial::DetectWanted, this, &frmConnect::Detect);
    connect(serialWay_, &QRadioButton::toggled, this, &frmConnect::ShowWay);
    connect(&desk_, &LinkDesk::Detecting, this, &frmConnect::ShowTried);
}

QString frmConnect::Text(int number) const {
    return ui::Say(app_.model.texts, number);
}

void frmConnect::MakeControls() {
    serialWay_->setObjectName(QStringLiteral("optSerial"));
    tcpWay_->setObjectName(QStringLiteral("optTcp"));
    for (QRadioButton* way : {serialWay_, tcpWay_}) way->setMinimumHeight(metrics::kControlHeight);
    host_->setObjectName(QStringLiteral("txtHost"));
    host_->setToolTip(Text(say::kHostTip));
    host_->setFixedWidth(kHostWidth);
    port_->setObjectName(QStringLiteral("txtPort"));
    port_->setMaxLength(5);
    port_->setToolTip(Text(say::kPortTip));
    port_->setFixedWidth(kPortWidth);
    connect_->setDefault(true);
    progress_->setTextVisible(false);
    progress_->setAccessibleName(Text(say::kProgressName));
    KeepRoom(*progress_);
    note_->setMinimumWidth(kNoteWidth);
    note_->setMinimumHeight(3 * note_->fontMetrics().lineSpacing());
    note_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
}

QWidget* frmConnect::MakeTcp() {
    auto* area = new QWidget;
    auto* fields = new QGridLayout(area);
    fields->setContentsMargins(metrics::kPageEdge, 0, 0, 0);
    fields->setHorizontalSpacing(metrics::kGroups);
    fields->setVerticalSpacing(metrics::kRelated);
    fields->setColumnStretch(1, 1);
    AddField(*fields, 0, Text(say::kHost), host_);
    AddField(*fields, 1, Text(say::kPort), port_);
    return area;
}

void frmConnect::MakeLayout() {
    tcp_ = MakeTcp();
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(metrics::kRelated);
    buttons->addWidget(simulated_);
    buttons->addStretch();
    buttons->addWidget(connect_);
    buttons->addWidget(cancel_);
    QVBoxLayout* all = MakeColumn(*this);
    all->setSpacing(metrics::kRelated);
    all->addWidget(serialWay_);
    all->addWidget(serial_);
    all->addSpacing(metrics::kRelated);
    all->addWidget(tcpWay_);
    all->addWidget(tcp_);
    all->addSpacing(metrics::kRelated);
    all->addWidget(note_);
    all->addWidget(progress_);
    all->addStretch();
    all->addLayout(buttons);
}

void frmConnect::ShowWay() {
    serial_->setEnabled(!working_ && serialWay_->isChecked());
    tcp_->setEnabled(!working_ && tcpWay_->isChecked());
}

// What is wrong is said, with the cursor in its field.
bool frmConnect::Take(LinkSettings& wire) {
    wire = desk_.Settings();
    serial_->Take(wire);
    wire.host = Utf8(host_->text().trimmed());
    bool isNumber = false;
    wire.tcpPort = port_->text().trimmed().toUShort(&isNumber);
    if (serialWay_->isChecked()) {
        if (!isNumber) wire.tcpPort = desk_.Settings().tcpPort;
        if (serial_->HasPort()) return true;
        serial_->FocusPort();
        Say(Text(connect_text::kNeedPort), true);
        return false;
    }
    wire.method = comm_method::kTcp;
    if (wire.host.empty() || !isNumber || wire.tcpPort == 0) {
        QLineEdit* field = wire.host.empty() ? host_ : port_;
        field->setFocus();
        Say(Text(wire.host.empty() ? say::kNeedHost : say::kNeedPort), true);
        return false;
    }
    return true;
}

void frmConnect::Connect() {
    LinkSettings wire;
    if (working_ || !Take(wire)) return;
    desk_.KeepSettings(wire);
    const bool tcp = wire.method == comm_method::kTcp;
    Try(Shown(tcp ? wire.host + ":" + std::to_string(wire.tcpPort) : wire.port), [&] { desk_.Open(wire); });
}

void frmConnect::ConnectSimulated() {
    if (!working_) Try(PlainCaption(Text(say::kSimulated)), [this] { desk_.OpenSimulated(); });
}

template <class Open>
void frmConnect::Try(const QString& where, Open&& open) {
    SetWorking(true);
    const auto end = qScopeGuard([this] { SetWorking(false); });
    Say(ui::Say(app_.model.texts, say::kConnecting, where), false);
    try {
        open();
        accept();
    } catch (const Error& error) {
        app_.Record(error);
        SetWorking(false);
        const bool tcp = tcpWay_->isChecked();
        QString words = Shown(error.Description());
        if (desk_.Link().IsStreaming())
            words = Text(link_text::kStreaming);
        else if (!tcp)
            words += QLatin1Char(' ') + Text(connect_text::kSerialHint);
        Say(words, true);
        connect_->setDefault(true);
        if (!tcp) return serial_->FocusPort();
        host_->setFocus();
        host_->selectAll();
    }
}

void frmConnect::Detect() {
    LinkSettings wire;
    if (working_ || !Take(wire)) return;
    desk_.KeepSettings(wire);
    const int method = wire.method;
    SetWorking(true);
    const auto end = qScopeGuard([this] { SetWorking(false); });
    try {
        const bool found = desk_.Detect(wire);
        SetWorking(false);
        EndOfDetection(found, wire);
    } catch (const Error& error) {
        app_.Record(error);
        SetWorking(false);
        Say(Shown(error.Description()), true);
        serial_->FocusPort();
    }
    if (method == comm_method::kDetect) connect_->setDefault(true);
}

void frmConnect::EndOfDetection(bool found, const LinkSettings& wire) {
    if (found) {
        serial_->ShowFound(wire);
        Say(ui::Say(app_.model.texts, connect_text::kFound, FramingWords(wire)), false);
        return connect_->setFocus();
    }
    if (desk_.Link().IsStreaming()) return Say(Text(link_text::kStreaming), true);
    Say(Text(desk_.GivenUp() ? connect_text::kDetectGivenUp : connect_text::kNotFound), !desk_.GivenUp());
}

// Over TCP there is one thing to try only, and how long that takes nobody knows.
void frmConnect::ShowTried(const QString& tried) {
    if (!working_ || tried.contains(QLatin1Char(':'))) return;
    const int most = DetectionTimeLeft(std::string_view()), left = DetectionTimeLeft(Utf8(tried));
    constexpr int kSecond = 1000;  // ms
    progress_->setRange(0, most);
    progress_->setValue(most - left);
    Say(ui::Say(app_.model.texts, connect_text::kTrying, tried,
                QString::number((left + kSecond - 1) / kSecond)),
        false);
}

// While it works, leaving means giving that up; the dialog is left by a second one.
void frmConnect::reject() {
    if (working_) return desk_.GiveUpOpening();
    QDialog::reject();
}

void frmConnect::SetWorking(bool on) {
    working_ = on;
    if (on) progress_->setRange(0, 0);
    for (QWidget* control : std::initializer_list<QWidget*>{serialWay_, tcpWay_, connect_, simulated_})
        control->setEnabled(!on);
    progress_->setVisible(on);
    ShowWay();
}

void frmConnect::Say(const QString& words, bool problem) {
    ShowNote(*note_, words, problem);
}

}  // namespace calyx::ui
