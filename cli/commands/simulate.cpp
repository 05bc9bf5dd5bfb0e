#include <algorithm>
#include <chrono>
#include <stdexcept>
#include <system_error>
#include <thread>

#include "cli/commands/commands.h"
#include "cli/documents.h"
#include "cli/exit.h"
#include "cli/program.h"
#include "comm/firmware_keys.h"
#include "model/language/reason.h"
#include "platform/paths.h"
#include "sim/fault.h"
#include "sim/pty_simulator.h"
#include "sim/serial_simulator.h"
#include "sim/tcp_server.h"

namespace calyx::cli {

namespace {

constexpr int kMostFill = 1'000'000;
constexpr auto kRest = std::chrono::milliseconds(50);  // between two looks at the cancel flag

class Simulate final : public Command {
  public:
    std::string_view Name() const override { return "simulate"; }
    std::string_view Help() const override { return "runs a simulated indicator until Ctrl+C"; }
    std::string Notes() const override {
        std::string notes =
            "It listens on 127.0.0.1, which only programs of this computer reach; the address, or the path "
            "of the\n"
            "serial line, is printed once it does.\n\nFaults, each for one line only with @K behind it, "
            "or "
            "from the\nK-th line on with @K+:\n";
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
        options.Flag(pty_, "--pty", "a serial line on a pseudo-terminal instead of TCP");
        options.Text(serial_, "--serial", "DEVICE",
                     "a serial port, with the host at the other end of its cable");
        options.Text(version_, "--version", "TEXT", "the answer to VERSION; \"V3.10.02 MERRIN\" without it");
        options.Number(address_, "--address", "N", "bus address: it hears and speaks in frames only", 1, 255);
        options.Text(settings_, "--settings", "19200,N,8,1",
                     "serial settings that it answers at; 9600,N,8,1 without it");
        options.Text(content_, "--content", "FILE", "a configuration file with what it holds at the start");
        options.Flag(strict_, "--strict", "refuses keys that the firmware of --version does not know");
        options.Number(fill_, "--fill", "N", "so many lines more in its dump, of no use, to make it long", 0,
                       kMostFill);
        options.Text(state_, "--state", "FILE", "keeps what it holds in this file over restarts");
        options.Each(faults_, "--fault", "NAME[:ARG]", "misbehaves in this way; can be given more than once");
    }

    int Run(Program& program) override {
        if ((pty_ ? 1 : 0) + (port_ ? 1 : 0) + (serial_ ? 1 : 0) > 1)
            throw UsageError("give one of --tcp, --pty and --serial, not both");
        if (settings_ && !pty_ && !serial_) throw UsageError("--settings are for --pty and --serial");
        const std::string settings = settings_.value_or("9600,N,8,1");
        const auto report = [&](const std::string& trouble) { program.Say(trouble); };
        try {
            if (pty_) {
                sim::PtySimulator simulator(What(program), {.settings = settings}, report);
                Serve(program, simulator.Path());
            } else if (serial_) {
                sim::SerialSimulator simulator(What(program), *serial_, settings, report);
                Serve(program, *serial_);
            } else {
                sim::TcpSimulator simulator(What(program), static_cast<std::uint16_t>(port_.value_or(0)),
                                            report);
                Serve(program, simulator.Address());
            }
        } catch (const std::invalid_argument& wrong) {
            throw UsageError(wrong.what());
        } catch (const sim::StateFileError& failure) {
            const bool writing = failure.When() == sim::StateFileError::Doing::kWriting;
            throw Error(writing ? code::kFileNotWritten : code::kFileNotReadable, "Calyx.Simulator.State",
                        "The simulated indicator cannot run: " + ReasonIn(failure.what()));
        } catch (const std::exception& failure) {
            throw Error(code::kLink, "Calyx.Simulator.Listen",
                        "The simulated indicator cannot run: " + ReasonIn(failure.what()));
        }
        throw Interrupted{};  // it ends by Ctrl+C only
    }

  private:
    sim::SimulatorOptions What(Program& program) const {
        sim::SimulatorOptions options;
        if (version_) options.version = *version_;
        if (content_) options.content = ReadWhole(program, *content_);
        if (state_) options.stateFile = PathOf(*state_);
        if (strict_) {
            TargetVersion target;
            target.TakeReply(options.version);
            options.knows = KeysKnownTo(program.Model(), target.Gated());
        }
        options.address = address_.value_or(0);
        options.fillLines = fill_.value_or(0);
        options.faults = faults_;
        return options;
    }

    static void Serve(Program& program, const std::string& where) {
        program.Out() << "listening on " << where << '\n' << std::flush;
        while (!program.Cancelled()) std::this_thread::sleep_for(kRest);
    }

    std::optional<int> port_, address_, fill_;
    std::optional<std::string> version_, settings_, serial_, content_, state_;
    std::vector<std::string> faults_;
    bool pty_ = false, strict_ = false;
};

}  // namespace

std::unique_ptr<Command> MakeSimulate() {
    return std::make_unique<Simulate>();
}

}  // namespace calyx::cli
