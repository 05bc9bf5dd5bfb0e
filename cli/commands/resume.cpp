#include "cli/commands/commands.h"
#include "cli/exit.h"
#include "cli/safe_transfer.h"

namespace calyx::cli {

namespace {

class Resume final : public Command {
  public:
    std::string_view Name() const override { return "resume"; }
    std::string_view Help() const override { return "goes on with a download that the link broke off"; }
    std::string Notes() const override {
        return "The lines that are left are sent, then all are read back. Exit code 1 when not every line "
               "was "
               "found in\nthe indicator as it was sent.\n";
    }
    bool HasListing() const override { return true; }

    void Declare(Options& options) override {
        options.Flag(restore_, "--restore", "puts back what was there before the download instead");
        options.Flag(forget_, "--forget", "forgets the download; needs no LINK");
        options.Flag(force_, "--force", "goes on although the LINK is not the one that it was begun with");
        link_.Declare(options);
    }

    int Run(Program& program) override {
        if (restore_ && forget_) throw UsageError("give --restore or --forget, not both");
        const auto pending = PendingSend(program);
        if (!pending) {
            program.Say("no download was broken off: there is nothing to resume");
            return kDone;
        }
        if (forget_) {
            ForgetSend(program);
            return kDone;
        }
        if (restore_ && pending->backup.empty())
            throw UsageError("what was there before was not kept; --backup of download does that");
        Link link(program, link_, Own::Download);
        link.Connect();
        program.Say(pending->document + ": " + Counted(pending->Left(), "line is", "lines are") + " left");
        NeedSameWay(pending->where, link.Comm().Where(), force_);
        if (pending->target.prefix != program.Model().target.prefix)
            throw UsageError("the download was for firmware " + pending->target.prefix +
                             ", this indicator has " + program.Model().target.prefix +
                             "; resume --forget drops it");
        return ResumeSend(program, link, restore_ ? Rest::PutBack : Rest::Send);
    }

  private:
    bool restore_ = false, forget_ = false, force_ = false;
    LinkOptions link_;
};

}  // namespace

std::unique_ptr<Command> MakeResume() {
    return std::make_unique<Resume>();
}

}  // namespace calyx::cli
