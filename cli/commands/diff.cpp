#include "cli/commands/commands.h"
#include "cli/differences.h"
#include "cli/documents.h"
#include "cli/exit.h"

namespace calyx::cli {

namespace {

class Diff final : public Command {
  public:
    std::string_view Name() const override { return "diff"; }
    std::string_view Help() const override { return "lists what differs between two files"; }
    std::string Notes() const override {
        return "Every changed key is listed with its value in A and in B, under its section and item. Exit "
               "code 1\n"
               "when there are any. With --defaults and A alone, the left side is a new configuration; with "
               "--defaults\n"
               "and two files, the value that a new configuration has is added to each line.\n";
    }
    bool HasListing() const override { return true; }

    void Declare(Options& options) override {
        options.Word(a_, "A", "configuration file");
        options.Word(b_, "B", "configuration file that A is compared with");
        options.Flag(defaults_, "--defaults", "compares with, or shows, the values of a new configuration");
        opening_.Declare(options);
    }

    int Run(Program& program) override {
        if (!b_ && !defaults_) throw UsageError("B is missing; give a second file or --defaults");
        const CIndicator a = opening_.Open(program, a_);
        const CIndicator before = b_ ? a : Fresh(program);
        const CIndicator after = b_ ? opening_.Open(program, *b_) : a;
        const ChangeSet changes = Difference(before.Lines(), after.Lines());
        ListDifferences(program, changes, before, after, defaults_ && b_);
        if (changes.Empty()) program.Say("no differences");
        return changes.Empty() ? kDone : kFindings;
    }

  private:
    static CIndicator Fresh(Program& program) {
        CIndicator document(program.Model());
        document.Initialize();
        return document;
    }

    std::string a_;
    std::optional<std::string> b_;
    bool defaults_ = false;
    Opening opening_;
};

}  // namespace

std::unique_ptr<Command> MakeDiff() {
    return std::make_unique<Diff>();
}

}  // namespace calyx::cli
