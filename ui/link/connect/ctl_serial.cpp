#include "ui/link/connect/ctl_serial.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QSpinBox>

#include "comm/detection.h"
#include "platform/serial_ports.h"
#include "ui/link/connect/connect_texts.h"
#include "ui/link/dialog_parts.h"

namespace calyx::ui {

using namespace connect_text;

namespace {

constexpr int kPortWidth = 320, kNarrow = 96;

QComboBox* MakeCombo(const char* name, std::initializer_list<std::pair<QString, const char*>> entries) {
    auto* combo = new QComboBox;
    combo->setObjectName(QLatin1String(name));
    for (const auto& [words, value] : entries) combo->addItem(words, QLatin1String(value));
    return combo;
}

// A stored word that is none of the choices is kept as one more of them.
void Choose(QComboBox& combo, const std::string& value) {
    const QString word = Shown(value);
    int place = combo.findData(word, Qt::UserRole, Qt::MatchFixedString);
    if (place < 0) {
        combo.addItem(word, word);
        place = combo.count() - 1;
    }
    combo.setCurrentIndex(place);
}

std::string Chosen(const QComboBox& combo) {
    return Utf8(combo.currentData().toString());
}

}  // namespace

ctlSerial::ctlSerial(const ResourceTexts& texts, Use use, QWidget* parent)
    : QWidget(parent),
      texts_(texts),
      port_(new QComboBox),
      baud_(MakeCombo("cboBaud", {})),
      parity_(MakeCombo(
          "cboParity",
          {{Say(texts, kParityNone), "N"}, {Say(texts, kParityEven), "E"}, {Say(texts, kParityOdd), "O"}})),
      dataBits_(MakeCombo("cboDataBits", {{QStringLiteral("8"), "8"}, {QStringLiteral("7"), "7"}})),
      stopBits_(MakeCombo("cboStopBits", {{QStringLiteral("1"), "1"}, {QStringLiteral("2"), "2"}})),
      noPorts_(MakeNote("lblNoPorts")),
      addressed_(new QCheckBox(Say(texts, kAddressed))),
      everyTime_(new QCheckBox(Say(texts, kEveryTime))),
      storedFirst_(new QCheckBox(Say(texts, kStoredFirst))),
      address_(new QSpinBox),
      detect_(MakeButton(texts, kDetect, "cmdDetect")) {
    for (const char* baud :
         {"300", "600", "1200", "2400", "4800", "9600", "19200", "38400", "57600", "115200"})
        baud_->addItem(QLatin1String(baud), QLatin1String(baud));
    port_->setObjectName(QStringLiteral("cboPort"));
    port_->setEditable(true);
    port_->setInsertPolicy(QComboBox::NoInsert);
    port_->setToolTip(Say(texts, kPortTip));
    port_->setFixedWidth(kPortWidth);
    noPorts_->setText(Say(texts, kNoPorts));
    noPorts_->setForegroundRole(role::kQuietText);
    addressed_->setObjectName(QStringLiteral("chkAddressed"));
    addressed_->setToolTip(Say(texts, kAddressTip));
    everyTime_->setObjectName(QStringLiteral("chkEveryTime"));
    everyTime_->setToolTip(Say(texts, kEveryTimeTip));
    storedFirst_->setObjectName(QStringLiteral("chkStoredFirst"));
    storedFirst_->setToolTip(Say(texts, kStoredFirstTip));
    address_->setObjectName(QStringLiteral("txtAddress"));
    address_->setRange(1, 255);
    address_->setAccessibleName(Say(texts, kAddressName));
    address_->setToolTip(Say(texts, kAddressTip));
    detect_->setToolTip(Say(texts, kDetectTip));
    for (QCheckBox* box : {addressed_, everyTime_, storedFirst_})
        box->setMinimumHeight(metrics::kControlHeight);
    MakeFields(use);
    connect(detect_, &QPushButton::clicked, this, &ctlSerial::DetectWanted);
    connect(addressed_, &QCheckBox::toggled, this, &ctlSerial::ShowChoices);
    connect(everyTime_, &QCheckBox::toggled, this, &ctlSerial::ShowChoices);
    Refresh();
    ShowChoices();
}

void ctlSerial::MakeFields(Use use) {
    auto* fields = new QGridLayout(this);
    fields->setContentsMargins(use == Use::Indicator ? metrics::kPageEdge : 0, 0, 0, 0);
    fields->setHorizontalSpacing(metrics::kGroups);
    fields->setVerticalSpacing(metrics::kRelated);
    fields->setColumnStretch(1, 1);
    auto* label = new QLabel(Say(texts_, kPort));
    label->setBuddy(port_);
    fields->addWidget(label, 0, 0);
    fields->addWidget(MakePortRow(), 0, 1);
    fields->addWidget(noPorts_, 1, 1);
    label = new QLabel(Say(texts_, kBaud));
    label->setBuddy(baud_);
    fields->addWidget(label, 2, 0);
    fields->addWidget(MakeFramingRow(), 2, 1);
    if (use == Use::Plain) {
        for (QWidget* absent :
             std::initializer_list<QWidget*>{addressed_, address_, everyTime_, storedFirst_, detect_}) {
            absent->setParent(this);
            absent->hide();
        }
        return;
    }
    fields->addWidget(new QLabel(Say(texts_, kHandshake)), 3, 0);
    auto* handshake = new QLabel(Say(texts_, kNoHandshake));
    handshake->setForegroundRole(role::kQuietText);
    handshake->setMinimumHeight(metrics::kControlHeight);
    fields->addWidget(handshake, 3, 1);
    fields->addWidget(MakeAddressRow(), 4, 1);
    fields->addWidget(everyTime_, 5, 1);
    auto* detection = new QHBoxLayout;
    detection->setSpacing(metrics::kGroups);
    detection->addWidget(detect_);
    detection->addWidget(storedFirst_);
    detection->addStretch();
    fields->addLayout(detection, 6, 1);
}

QWidget* ctlSerial::MakePortRow() {
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(metrics::kRelated);
    QPushButton* refresh = MakeButton(texts_, kRefresh, "cmdRefresh");
    refresh->setToolTip(Say(texts_, kRefreshTip));
    connect(refresh, &QPushButton::clicked, this, &ctlSerial::Refresh);
    layout->addWidget(port_);
    layout->addWidget(refresh);
    layout->addStretch();
    return row;
}

QWidget* ctlSerial::MakeFramingRow() {
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(metrics::kRelated);
    const auto add = [&](int caption, QComboBox* combo) {
        auto* label = new QLabel(Say(texts_, caption));
        label->setBuddy(combo);
        layout->addSpacing(metrics::kRelated);
        layout->addWidget(label);
        layout->addWidget(combo);
    };
    baud_->setFixedWidth(kNarrow);
    layout->addWidget(baud_);
    add(kParity, parity_);
    add(kDataBits, dataBits_);
    add(kStopBits, stopBits_);
    layout->addStretch();
    return row;
}

QWidget* ctlSerial::MakeAddressRow() {
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(metrics::kRelated);
    layout->addWidget(addressed_);
    layout->addWidget(address_);
    layout->addStretch();
    return row;
}

// The port that is chosen stays, whether it is there or not: its adapter may be plugged in later.
void ctlSerial::Refresh() {
    const std::string before = Port();
    const auto ports = ListSerialPorts();
    port_->clear();
    for (const SerialPortInfo& info : ports) {
        const QString name = Shown(info.name);
        port_->addItem(
            info.description.empty() ? name : Say(texts_, kPortWithWords, name, Shown(info.description)),
            name);
    }
    noPorts_->setVisible(ports.empty());
    const int place = port_->findData(Shown(before));
    port_->setCurrentIndex(place);
    if (place < 0) port_->setEditText(Shown(before));
}

// What is typed, or the name behind the words of a listed port.
std::string ctlSerial::Port() const {
    const QString text = port_->currentText().trimmed();
    const int place = port_->findText(text, Qt::MatchFixedString);
    return Utf8(place < 0 ? text : port_->itemData(place).toString());
}

bool ctlSerial::HasPort() const {
    return !Port().empty();
}

void ctlSerial::FocusPort() {
    port_->setFocus();
    port_->lineEdit()->selectAll();
}

void ctlSerial::Show(const LinkSettings& settings) {
    const int place = port_->findData(Shown(settings.port));
    port_->setCurrentIndex(place);
    if (place < 0) port_->setEditText(Shown(settings.port));
    addressed_->setChecked(settings.method == comm_method::kAddressed);
    everyTime_->setChecked(settings.method == comm_method::kDetect);
    storedFirst_->setChecked(settings.storedFirst);
    address_->setValue(settings.address);
    ShowFound(settings);
}

void ctlSerial::ShowFound(const LinkSettings& found) {
    Choose(*baud_, found.baud);
    Choose(*parity_, found.parity);
    Choose(*dataBits_, found.dataBits);
    Choose(*stopBits_, found.stopBits);
}

void ctlSerial::Take(LinkSettings& settings) const {
    settings.method = addressed_->isChecked()   ? comm_method::kAddressed
                      : everyTime_->isChecked() ? comm_method::kDetect
                                                : 0;
    settings.port = Port();
    settings.baud = Chosen(*baud_);
    settings.parity = Chosen(*parity_);
    settings.dataBits = Chosen(*dataBits_);
    settings.stopBits = Chosen(*stopBits_);
    settings.address = address_->value();
    settings.storedFirst = storedFirst_->isChecked();
}

// An indicator on a bus is asked under its address, and detection speaks without one.
void ctlSerial::ShowChoices() {
    const bool bus = addressed_->isChecked();
    address_->setEnabled(bus);
    if (bus) everyTime_->setChecked(false);
    everyTime_->setEnabled(!bus);
}

}  // namespace calyx::ui
