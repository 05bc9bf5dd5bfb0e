#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "sim/calibration.h"
#include "sim/fault.h"
#include "sim/line_reader.h"
#include "sim/reply.h"
#include "sim/store.h"

namespace calyx::sim {

struct SimulatorOptions {
    // The answer to VERSION. Its first word is the VERSION parameter; the identification stands after
    // the last ".", a CB2 board's mark before it: "V2.08.01 CB2 MERRIN".
    std::string version = "V3.10.02 MERRIN";
    bool setupMode = true;
    // Its bus address, 1 to 255: it then hears and speaks in frames only. 0: none.
    int address = 0;
    // Whether its firmware knows a key; a setting of another one is refused. Empty: it takes all that look
    // like keys.
    std::function<bool(std::string_view key)> knows{};
    // So many lines more in its dump, of no use to anybody, to make it long.
    int fillLines = 0;
    // What it holds at the start, as the lines of a configuration file or its body; a VERSION line in it is
    // passed over. Empty: an indicator reset to its defaults.
    std::string content{};
    // The cards in its slots, as the value of the line HARDWARE; empty: what the content says.
    std::string hardware{};
    // Where its content survives a restart; empty: nowhere. What the file holds replaces `content`.
    std::filesystem::path stateFile{};
    // "NAME" or "NAME:ARGUMENT" each, see KnownFaults().
    std::vector<std::string> faults{};
    // How much of what it received is kept to be looked at, in bytes, every line counted with kLineCost
    // bytes more than it has; the oldest lines go first.
    std::size_t receivedBytes = 4u << 20;
};

// A Merrin indicator without its wire: bytes in, bytes out. It shares no code with the link or the
// document, so that it cannot share a mistake with them.
//
// It answers "VERSION" with its version text, "KNIX" with OK in setup mode, "DUMPALL" with VERSION and
// all its parameter lines, "WDGT.CLR" and "DB.DELALL" with OK after clearing widgets or database,
// "SJ.DOWNLOAD#" with a port number with OK, and the calibration commands as LoadCells says; "KEY=VALUE" is
// stored and answered OK, "KEY" is answered "KEY=VALUE". A lone CR has no answer. Anything else is answered
// "??". Not thread-safe.
class Simulator {
  public:
    static constexpr std::size_t kLineCost = 32;

    // Raises std::invalid_argument (version text, faults) and what Store::Load and Store::Save raise: with
    // a state file, a place that cannot be written is found here.
    explicit Simulator(SimulatorOptions options = {});

    // Another host is on the wire: a line begun by the last one is forgotten.
    void NewConnection();

    // Takes bytes from the front, up to the end of the first line at most, and returns the answer to
    // that line. To be called until no bytes are left, unless the answer closes the connection.
    Reply Exchange(std::string_view& bytes);
    // The answers to all the bytes, for a wire that knows neither pieces nor closing.
    std::string Receive(std::string_view bytes);

    void AddFault(std::string_view spec);  // raises std::invalid_argument, see MakeFault
    void ClearFaults() { faults_.clear(); }

    // The lines received, lone CRs included, without their ends; a line too long is cut.
    std::vector<std::string> Received() const { return {received_.begin(), received_.end()}; }
    std::uint64_t ReceivedCount() const { return receivedCount_; }  // those no longer kept included
    void ForgetReceived();

    // What it sends besides, because of a fault.
    Unasked Streams() const;

    // The whole configuration as DUMPALL answers it.
    std::string DumpText() const;

    bool StateUnsaved() const;
    // Writes the state file, if there is one and the content has changed. Raises StateFileError.
    void SaveState();

  private:
    struct Command;
    static const Command kCommands[];
    static const Command* FindCommand(std::string_view line);

    void Record(std::string_view line);
    Reply AnswerRaw(std::string_view raw, bool tooLong);
    Reply AnswerLine(std::string_view line, bool tooLong);
    std::string OnTheWire(const Reply& reply, std::string_view raw) const;
    std::string Framed(std::string_view text, int address) const;
    std::string Handle(std::string_view line);
    std::string SetParameter(std::string_view key, std::string_view value);
    std::string AnswerParameter(std::string_view key) const;
    std::string_view VersionNumber() const;

    std::string AnswerVersion();
    std::string AnswerSetupMode();
    std::string AnswerDump();
    std::string ClearWidgets();
    std::string ClearDatabase();
    std::string DownloadJunctionBoxes();

    SimulatorOptions options_;
    std::vector<std::unique_ptr<Fault>> faults_;
    LineReader reader_;
    Store store_;
    LoadCells loadCells_;
    std::uint64_t savedChanges_ = 0;
    std::deque<std::string> received_;
    std::size_t keptBytes_ = 0;
    std::uint64_t receivedCount_ = 0;
};

}  // namespace calyx::sim
