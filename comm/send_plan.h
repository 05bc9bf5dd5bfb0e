#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "comm/comparison.h"

namespace calyx {

// A line of a download as it stands against what the indicator holds.
struct PlannedLine {
    enum class Fate {
        Send,       // differs, or the indicator has no such line
        Same,       // held already
        NotKnown,   // the indicator's firmware does not have it
        NotChosen,  // differs, but belongs to a part that is not chosen
        OnlyThere,  // the indicator alone has it; a download cannot take it away
    };
    Fate fate = Fate::Send;
    std::string key{};                  // empty: a command, or a line of a program
    std::string line{};                 // as it is sent; empty: OnlyThere
    std::optional<std::string> held{};  // what the indicator holds for the key
    std::string reason{};               // why it does not go, in words; empty for Send and Same
    std::string place{};                // "Scales, Scale 2", for grouping; empty for Same
    std::size_t step = 0;               // of SendPlan::All
    bool ticked = true;                 // to be sent; counts for Send only
};

// What a download would change in a connected indicator, line by line in sending order, to be looked at
// and ticked before anything is sent.
//
// Steps that begin with a command that clears (display widgets, database) go as a whole or not at all: where
// one of their lines is ticked, command and all lines are sent. A program always goes. Raises what
// PlanDownload raises.
class SendPlan {
  public:
    SendPlan(const CIndicator& document, const Held& held, const DownloadOptions& options,
             const Target& target);

    std::vector<PlannedLine>& Lines() { return lines_; }
    const std::vector<PlannedLine>& Lines() const { return lines_; }
    std::size_t Count(PlannedLine::Fate fate) const;

    // The steps of what is ticked. Those in which nothing is ticked have no lines and no probe.
    std::vector<DownloadStep> Steps() const;
    // The steps of the whole download.
    const std::vector<DownloadStep>& All() const { return steps_; }

  private:
    void AddChosen(const ChangeSet& changes);
    void AddUnknown(const CIndicator& document, const DownloadOptions& options, const Target& target);
    void AddNotChosen(const CIndicator& document, const Held& held, unsigned chosen, const Target& target);
    void AddOnlyThere(const ChangeSet& changes);

    const ResourceTexts* texts_;
    std::vector<DownloadStep> steps_;
    std::vector<PlannedLine> lines_;
};

// "Scales, Scale 2": where a key stands in a document; empty for a key that no section owns.
std::string PlaceOf(const CIndicator& document, std::string_view key);

}  // namespace calyx
