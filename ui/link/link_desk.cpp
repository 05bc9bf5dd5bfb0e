#include "ui/link/link_desk.h"

#include <QScopeGuard>

#include "comm/transport_factory.h"
#include "model/language/change_set.h"
#include "model/language/reason.h"
#include "model/language/text.h"
#include "ui/link/link_ui_texts.h"
#include "ui/text.h"
#include "ui/texts.h"

namespace calyx::ui {

namespace {
constexpr int kLookEvery = 1000;  // ms
}

LinkDesk::LinkDesk(AppContext& app)
    : app_(app),
      users_(app.settings, app.model.texts, [&app](const Error& error) { app.Record(error); }),
      settings_(users_),
      transports_(std::make_unique<TransportFactory>(app.model.texts, clock_)),
      link_(std::make_unique<CIndicatorComm>(LinkParts{*transports_, clock_, settings_, app.model.texts,
                                                       app.cancel, app.folders.userData + "commlog.txt"})) {
    link_->AddObserver(*this);
    look_.setInterval(kLookEvery);
    connect(&look_, &QTimer::timeout, this, &LinkDesk::NoticeLoss);
    look_.start();
}

LinkDesk::~LinkDesk() {
    link_->RemoveObserver(*this);
}

void LinkDesk::Open(const LinkSettings& wire) {
    settings_.Use(wire, false);
    OpenLink();
}

void LinkDesk::Open(const std::string& host, std::uint16_t port) {
    LinkSettings wire = users_.Load();
    wire.method = comm_method::kTcp;
    wire.host = host;
    wire.tcpPort = port;
    Open(wire);
}

bool LinkDesk::Detect(LinkSettings& wire) {
    const Use use(*this);
    giveUp_ = false;
    app_.cancel = false;
    settings_.Use(wire, false);
    if (!link_->AutoDetect()) return false;
    wire = settings_.Load();
    return true;
}

void LinkDesk::OpenSimulated() {
    if (!simulator_) {
        try {
            simulator_ = std::make_unique<sim::TcpSimulator>(
                sim::SimulatorOptions{.hardware = cards_ ? cards_() : std::string(), .faults = faults_});
        } catch (const std::exception& failure) {
            throw Error(code::kLink, "Calyx.LinkDesk.OpenSimulated",
                        app_.model.texts.Format(say::kSimulatorFailed, {ReasonIn(failure.what())}));
        }
    }
    LinkSettings wire;
    wire.method = comm_method::kTcp;
    wire.host = "127.0.0.1";
    wire.tcpPort = simulator_->Port();
    settings_.Use(wire, true);
    OpenLink();
}

void LinkDesk::SetFaults(const std::vector<std::string>& faults) {
    faults_ = faults;
    if (!simulator_) return;
    simulator_->ClearFaults();
    for (const std::string& fault : faults_) simulator_->AddFault(fault);
}

void LinkDesk::OpenLink() {
    const Use use(*this);
    giveUp_ = false;
    connected_ = false;
    app_.cancel = false;
    const auto end = qScopeGuard([this] {
        giveUp_ = false;
        if (!connected_) CloseQuietly();
    });
    link_->Connect();
    identification_ = ShownValue(Identify());
    NeedBusOff();
    AskForCards();
    connected_ = true;
    where_ = Simulated() ? Say(app_.model.texts, say::kWhereSimulated) : Address();
    emit Logged(Say(app_.model.texts, say::kLogIdentified, identification_));
    emit Opened();
    emit DeviceChanged();
}

// An indicator that does not tell its version is not known well enough to send it anything.
std::string LinkDesk::Identify() {
    const std::string version(Trim(link_->ReadVersion(app_.model.target)));
    if (!version.empty()) return version;
    const ResourceTexts& texts = app_.model.texts;
    throw Error(code::kLink, "Calyx.LinkDesk.Open",
                giveUp_ ? texts.Text(say::kGivenUp) : texts.Format(code::kLink, {Utf8(Address())}));
}

// With the bus on, the indicator answers a lone CR and would take every line of ours for an order to print.
void LinkDesk::NeedBusOff() {
    if (link_->CheckForBusEnabled())
        throw Error(code::kLink, "Calyx.CIndicatorComm.CheckForBusEnabled",
                    app_.model.texts.Text(link_ui_text::kBusEnabled));
}

// Firmware that has no such line refuses it; then nothing is known of the cards.
void LinkDesk::AskForCards() {
    liveCards_.clear();
    const std::string reply = link_->GetAnswer("HARDWARE").value_or(std::string());
    for (const KeyValue& line : ReadLines(reply)) {
        if (EqualNoCase(line.key, "HARDWARE")) liveCards_ = line.value;
    }
    if (giveUp_) throw Error(code::kLink, "Calyx.LinkDesk.Open", app_.model.texts.Text(say::kGivenUp));
}

// While another error is on its way.
void LinkDesk::CloseQuietly() {
    try {
        link_->Disconnect();
    } catch (const Error& error) {
        app_.Record(error);
    }
}

void LinkDesk::NoticeLoss() {
    if (Busy() || !connected_ || link_->Connected()) return;
    connected_ = false;
    emit Logged(Say(app_.model.texts, say::kLogDisconnected));
    emit DeviceChanged();
}

void LinkDesk::Close() {
    connected_ = false;
    link_->Disconnect();
    emit DeviceChanged();
}

QString LinkDesk::Address() {
    const LinkSettings settings = settings_.Load();
    if (settings.method != comm_method::kTcp) return Shown(link_->Where());
    return Shown(settings.host) + QLatin1Char(':') + QString::number(settings.tcpPort);
}

void LinkDesk::ConnectToIndicator(const std::string& description) {
    emit Logged(Say(app_.model.texts, say::kLogConnected, Shown(description)));
}

void LinkDesk::DisconnectedFromIndicator() {
    emit Logged(Say(app_.model.texts, say::kLogDisconnected));
    if (!connected_) return;
    connected_ = false;
    emit DeviceChanged();
}

void LinkDesk::AutoDetecting(const std::string& tried, bool& cancel) {
    emit Detecting(Shown(tried));
    cancel |= giveUp_;
}

void LinkDesk::CancelGetData(bool& cancel) {
    cancel |= giveUp_;
}

void LinkDesk::Sending(const std::string& line) {
    emit Logged(Say(app_.model.texts, say::kLogOut, ShownValue(line)));
}

void LinkDesk::ReceivedResponse() {
    emit Logged(Say(app_.model.texts, say::kLogNoAnswer));
}

}  // namespace calyx::ui
