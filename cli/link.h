#pragma once

#include <optional>
#include <string>

#include "cli/options.h"
#include "cli/program.h"
#include "cli/progress.h"
#include "cli/unfinished.h"
#include "comm/indicator_comm.h"
#include "comm/transport_factory.h"

namespace calyx::cli {

// LINK on the command line: which way leads to the indicator. What is not said is as in the program's
// settings; a log that the settings ask for is "commlog.txt" in the user's folder.
struct LinkOptions {
    std::optional<std::string> tcp, serial, settings, search, log;
    std::optional<int> address, delayMs;
    bool detect = false;

    void Declare(Options& options);
    bool Given() const { return tcp || serial; }
    std::string LogFile(Program& program) const;
    // Raises UsageError.
    LinkSettings Resolve(const LinkSettings& stored) const;
};

// The link of one command: connects, and is closed when it ends. One a command.
class Link final : private ILinkSettingsStore, private ILinkEvents {
  public:
    // Says what is unfinished but for the command's own. Raises UsageError, and 20002 or 20003 for a log that
    // cannot be written there.
    Link(Program& program, const LinkOptions& options, Own own = Own::Nothing);
    ~Link() override;

    // Connects and lets the target version follow the indicator, whose reply to VERSION is returned. A port
    // whose bus parameter is on is refused unless any will do: it mixes its own answers into the replies.
    // Raises 12801; Interrupted.
    enum class Bus { Off, Any };
    std::string Connect(Bus bus = Bus::Off);
    void Disconnect();

    CIndicatorComm& Comm() { return comm_; }

  private:
    LinkSettings Load() override { return settings_; }
    // What the command line says is for this command, and the stored settings stay as they are.
    void Store(const LinkSettings&) override {}
    void AutoDetecting(const std::string& tried, bool& cancel) override;

    Program& program_;
    LinkSettings settings_;
    SteadyClock clock_;
    TransportFactory transports_;
    CIndicatorComm comm_;
    LinkObserver observer_{comm_, *this};
    Progress progress_;
    std::string tried_;  // the settings that detection is at
};

}  // namespace calyx::cli
