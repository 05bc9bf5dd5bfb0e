#include "cli/commands/commands.h"
#include "cli/differences.h"
#include "cli/documents.h"
#include "cli/exit.h"
#include "cli/transfer.h"

namespace calyx::cli {

namespace {

class Compare final : public Command {
  public:
    std::string_view Name() const override { return "compare"; }
    std::string_view Help() const override { return "lists what differs between a file and the indicator"; }
    std::string Notes() const override {
        return "Compared are the lines that a download of the same groups to this indicator sends. Each "
               "difference is\n"
               "listed with the file's value and the indicator's, \"(no line)\" where it has none. Exit code "
               "1 "
               "when there\n"
               "are any.\n";
    }
    bool HasListing() const override { return true; }

    void Declare(Options& options) override {
        options.Word(file_, "FILE", "configuration file");
        groups_.Declare(options);
        opening_.Declare(options);
        link_.Declare(options);
    }

    int Run(Program& program) override {
        const unsigned groups = groups_.Mask();
        const CIndicator document = opening_.Open(program, file_);
        Link link(program, link_);
        link.Connect();
        Progress progress(program.Ends());
        const Held held = ReadIndicator(program, link, progress);
        const ChangeSet changes = AgainstIndicator(document, held, groups, program.Model().target.Gated());
        ListDifferences(program, changes, document, held.document);
        bool cardsDiffer = false;
        for (const KeyValue& line : held.lines) {
            if (line.key != "HARDWARE") continue;
            for (const BrokenRule& rule : document.ValidateLiveHardware("HARDWARE=" + line.value)) {
                program.Say(rule.text);
                cardsDiffer = true;
            }
        }
        if (changes.Empty() && !cardsDiffer) program.Say("no differences");
        return changes.Empty() && !cardsDiffer ? kDone : kFindings;
    }

  private:
    std::string file_;
    Groups groups_;
    Opening opening_;
    LinkOptions link_;
};

}  // namespace

std::unique_ptr<Command> MakeCompare() {
    return std::make_unique<Compare>();
}

}  // namespace calyx::cli
