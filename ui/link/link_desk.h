#pragma once

#include <QObject>
#include <QString>
#include <QTimer>
#include <functional>
#include <memory>

#include "app/context.h"
#include "comm/indicator_comm.h"
#include "sim/tcp_server.h"
#include "ui/link/desk_link_settings.h"
#include "ui/link/ui_clock.h"

namespace calyx::ui {

// The desktop program's one link to an indicator, real or simulated, and what is known of the indicator.
// The link works on the user-interface thread; while it waits, the window's messages run, so a second
// operation could begin inside the first: it asks Busy before.
class LinkDesk : public QObject, private ILinkEvents {
    Q_OBJECT

  public:
    explicit LinkDesk(AppContext& app);
    ~LinkDesk() override;

    // Connects, reads the version and lets the target version follow it. Raise 12801; then the link is
    // closed.
    void Open(const LinkSettings& wire);
    void Open(const std::string& host, std::uint16_t port);
    void Reopen() { OpenLink(); }  // the same as before
    // Looks for the settings of the serial line, which are then in `wire`. False: none was answered, the
    // indicator streams (Link().IsStreaming()) or it was given up. 12801 when the port does not open.
    bool Detect(LinkSettings& wire);
    bool GivenUp() const { return giveUp_; }
    // The user's settings for the next connection.
    LinkSettings Settings() { return users_.Load(); }
    void KeepSettings(const LinkSettings& chosen) { users_.Keep(chosen); }
    void OpenSimulated();  // starts the simulated indicator if need be; it keeps what it holds
    // The cards that a simulated indicator has when it is made, as the value of the line HARDWARE.
    void SetCards(std::function<std::string()> cards) { cards_ = std::move(cards); }
    // How the simulated indicator misbehaves (sim/fault.h), from now on and when it is made.
    void SetFaults(const std::vector<std::string>& faults);
    const std::vector<std::string>& Faults() const { return faults_; }
    void GiveUpOpening() { giveUp_ = true; }
    void Close();  // raises 12801 when the wire makes trouble; it is closed all the same

    // Takes notice of a link that the other end has closed; done by itself every second too.
    void NoticeLoss();
    bool Connected() const { return connected_ && link_->Connected(); }
    bool Simulated() const { return settings_.Simulated(); }
    const QString& Identification() const { return identification_; }  // "V3.10.02 MERRIN"
    // What the indicator says of its cards, as the value of the line HARDWARE; empty: it does not say.
    const std::string& LiveCards() const { return liveCards_; }
    const QString& Where() const { return where_; }  // "10.0.0.9:10001", "the simulated indicator"
    CIndicatorComm& Link() { return *link_; }
    sim::TcpSimulator* Simulator() { return simulator_.get(); }  // nothing until it was used

    // An operation runs for as long as one of these lives.
    class Use {
      public:
        explicit Use(LinkDesk& desk) : desk_(desk) { ++desk_.uses_; }
        ~Use() { --desk_.uses_; }
        Use(const Use&) = delete;
        Use& operator=(const Use&) = delete;

      private:
        LinkDesk& desk_;
    };
    bool Busy() const { return uses_ > 0; }

  signals:
    void Opened();                         // another connection
    void Detecting(const QString& tried);  // "9600,E,7,1", on every poll while it is tried
    void DeviceChanged();
    void Logged(const QString& line);

  private:
    void OpenLink();
    std::string Identify();
    void NeedBusOff();
    void AskForCards();
    void CloseQuietly();
    QString Address();

    void ConnectToIndicator(const std::string& description) override;
    void DisconnectedFromIndicator() override;
    void AutoDetecting(const std::string& settings, bool& cancel) override;
    void CancelGetData(bool& cancel) override;
    void Sending(const std::string& line) override;
    void ReceivedResponse() override;

    AppContext& app_;
    std::function<std::string()> cards_;
    UiClock clock_;
    LinkSettingsStore users_;
    DeskLinkSettings settings_;
    std::unique_ptr<ITransportFactory> transports_;
    std::unique_ptr<CIndicatorComm> link_;
    std::unique_ptr<sim::TcpSimulator> simulator_;
    std::vector<std::string> faults_;
    QString identification_, where_;
    std::string liveCards_;
    bool connected_ = false;
    bool giveUp_ = false;
    int uses_ = 0;
    QTimer look_;
};

}  // namespace calyx::ui
