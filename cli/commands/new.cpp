#include "cli/commands/commands.h"
#include "cli/documents.h"
#include "cli/exit.h"

namespace calyx::cli {

namespace {

class New final : public Command {
  public:
    std::string_view Name() const override { return "new"; }
    std::string_view Help() const override { return "creates a file with a default configuration"; }

    void Declare(Options& options) override {
        options.Word(file_, "FILE", "the file to create");
        options.Flag(force_, "--force", "replaces a file that exists");
    }

    int Run(Program& program) override {
        if (!force_) NeedFree(program, file_, "--force replaces it");
        CIndicator document(program.Model());
        document.Initialize();
        document.Save(file_, false);
        return kDone;
    }

  private:
    std::string file_;
    bool force_ = false;
};

}  // namespace

std::unique_ptr<Command> MakeNew() {
    return std::make_unique<New>();
}

}  // namespace calyx::cli
