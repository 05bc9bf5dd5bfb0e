#include "cli/commands/commands.h"
#include "cli/documents.h"
#include "cli/exit.h"

namespace calyx::cli {

namespace {

class Scrivo final : public Command {
  public:
    std::string_view Name() const override { return "scrivo"; }
    std::string_view Help() const override {
        return "writes the import file of alias constants for Scrivo programs";
    }

    void Declare(Options& options) override {
        options.Word(file_, "FILE", "configuration file");
        options.Text(output_, "--output", "OUT", "the file to write; an existing one is replaced",
                     Options::Need::Required);
        opening_.Declare(options);
    }

    int Run(Program& program) override {
        CIndicator document = opening_.Open(program, file_);
        document.GenerateImportFile(*output_);
        return kDone;
    }

  private:
    std::string file_;
    std::optional<std::string> output_;
    Opening opening_;
};

}  // namespace

std::unique_ptr<Command> MakeScrivo() {
    return std::make_unique<Scrivo>();
}

}  // namespace calyx::cli
