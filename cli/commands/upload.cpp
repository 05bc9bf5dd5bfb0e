#include "comm/upload.h"

#include <istream>

#include "cli/commands/commands.h"
#include "cli/documents.h"
#include "cli/exit.h"
#include "cli/transfer.h"
#include "model/language/file_store.h"

namespace calyx::cli {

namespace {

constexpr int kReplaceQuestion = 1013;

class UploadCommand final : public Command {
  public:
    std::string_view Name() const override { return "upload"; }
    std::string_view Help() const override { return "reads the indicator's configuration into a file"; }
    std::string Notes() const override {
        return "The reply is written as it came, so the file has no checksum; --skip-checks opens it.\n";
    }
    bool HasListing() const override { return true; }

    void Declare(Options& options) override {
        options.Word(file_, "OUT", "the file to write");
        options.Flag(force_, "--force", "replaces a file that exists");
        link_.Declare(options);
    }

    int Run(Program& program) override {
        Link link(program, link_);
        if (!MayReplace(program)) {
            program.Say("nothing was read and nothing was written");
            return kFindings;
        }
        link.Connect();
        Progress progress(program.Ends());
        const std::string dump = ReadDump(program, link, progress);
        WriteUpload(*program.Model().files, program.Model().texts, file_, dump);
        Report(program, dump.size());
        return kDone;
    }

  private:
    // Asked on a terminal; elsewhere only --force replaces.
    bool MayReplace(Program& program) const {
        const bool exists = program.Model().files->Look(file_) == IFileStore::Found::File;
        if (!exists || force_) return true;
        if (!program.Ends().inIsTerminal) NeedFree(program, file_, force_);
        program.Ends().err << file_ << ": " << program.Model().texts.Text(kReplaceQuestion) << " [y/N] "
                           << std::flush;
        std::string answer;
        std::getline(program.Ends().in, answer);
        program.StopIfCancelled();
        return answer == "y" || answer == "Y" || answer == "yes";
    }

    void Report(Program& program, std::size_t characters) const {
        CIndicator document(program.Model());
        const ReadReport report = document.Load(file_, true);
        const std::size_t lines = document.Lines().size();
        program.List(
            [&] {
                return Json{{"file", Utf8(file_)},
                            {"characters", characters},
                            {"indicatorVersion", Utf8(document.IndicatorVersion())},
                            {"lines", lines},
                            {"notes", report.Count()}};
            },
            [&](std::ostream& out) {
                out << file_ << ": " << Counted(characters, "character", "characters") << ", "
                    << Counted(lines, "parameter line", "parameter lines") << ", firmware "
                    << document.IndicatorVersion() << '\n';
            });
        if (report.Empty()) return;
        program.Say(Counted(report.Count(), "line was", "lines were") +
                    " passed over or changed in reading; check lists them");
    }

    std::string file_;
    bool force_ = false;
    LinkOptions link_;
};

}  // namespace

std::unique_ptr<Command> MakeUpload() {
    return std::make_unique<UploadCommand>();
}

}  // namespace calyx::cli
