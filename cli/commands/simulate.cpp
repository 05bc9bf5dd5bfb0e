#include <algorithm>
#include <chrono>
#include <stdexcept>
#include <system_error>
#include <thread>

#include "cli/commands/commands.h"
#include "cli/exit.h"
#include "cli/program.h"
#include "platform/paths.h"
#include "sim/fault.h"
#include "sim/tcp_server.h"

namespace calyx::cli {

namespace {

constexpr auto kRest = std::chrono::milliseconds(50);  // between two looks at the cancel flag

class Simulate final : public Command {
  public:
    std::string_view Name() const override { return "simulate"; }
    std::string_view Help() const override { return "runs a simulated indicator until Ctrl+C"; }
    std::string Notes() const override {
        std::string notes =
            "It listens on 127.0.0.1, which only programs of this computer reach; the address is printed "
            "once it\n"
            "does.\n\nFaults:\n";
        std::size_t width = 0;
        for (const auto& fault : sim::KnownFaults()) width = std::max(width, fault.form.size());
        for (const auto& fault : sim::KnownFaults()) {
            notes.append("  ")
                .append(fault.form)
                .append(width - fault.form.size() + 2, ' ')
                .append(fault.help)
                .append("\n");
        }
        return notes;
    }

    void Declare(Options& options) override {
        options.Number(port_, "--tcp", "PORT", "TCP port to listen on; 0, as without it: a free one", 0,
                       65535);
        options.Flag(pty_, "--pty", "a pseudo-terminal instead of TCP (not there yet)");
        options.Text(version_, "--version", "TEXT", "the answer to VERSION; \"V3.10.02 MERRIN\" without it");
        options.Number(address_, "--address", "N", "bus address (not there yet)", 1, 255);
        options.Text(settings_, "--settings", "19200,N,8,1", "serial settings it answers at (not there yet)");
        options.Text(state_, "--state", "FILE", "keeps what it holds in this file over restarts");
        options.Each(faults_, "--fault", "NAME[:ARG]", "misbehaves in this way; can be given more than once");
    }

    int Run(Program& program) override {
        if (pty_ || address_ || settings_) {
            throw UsageError(
                "--pty, --address and --settings are not there yet: the simulated indicator has TCP only");
        }
        sim::SimulatorOptions options;
        if (version_) options.version = *version_;
        if (state_) options.stateFile = PathOf(*state_);
        options.faults = faults_;
        try {
            sim::TcpSimulator simulator(std::move(options), static_cast<std::uint16_t>(port_.value_or(0)),
                                        [&](const std::string& trouble) { program.Say(trouble); });
            program.Out() << "listening on " << simulator.Address() << '\n' << std::flush;
            while (!program.Cancelled()) std::this_thread::sleep_for(kRest);
        } catch (const std::invalid_argument& wrong) {
            throw UsageError(wrong.what());
        } catch (const sim::StateFileError& failure) {
            const bool writing = failure.When() == sim::StateFileError::Doing::kWriting;
            throw Error(writing ? code::kFileNotWritten : code::kFileNotReadable, "Calyx.Simulator.State",
                        std::string("The simulated indicator cannot run: ") + failure.what());
        } catch (const std::exception& failure) {
            throw Error(code::kLink, "Calyx.TcpSimulator.Listen",
                        std::string("The simulated indicator cannot run: ") + failure.what());
        }
        throw Interrupted{};  // it ends by Ctrl+C only
    }

  private:
    std::optional<int> port_, address_;
    std::optional<std::string> version_, settings_, state_;
    std::vector<std::string> faults_;
    bool pty_ = false;
};

}  // namespace

std::unique_ptr<Command> MakeSimulate() {
    return std::make_unique<Simulate>();
}

}  // namespace calyx::cli
