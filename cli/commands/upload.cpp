#include "comm/upload.h"

#include <algorithm>
#include <istream>

#include "cli/commands/commands.h"
#include "cli/documents.h"
#include "cli/exit.h"
#include "cli/transfer.h"
#include "model/language/file_store.h"
#include "model/language/text.h"

namespace calyx::cli {

namespace {

constexpr int kOpening = 109;  // numbers of texts
constexpr int kReplaceQuestion = 1013;

class UploadCommand final : public Command {
  public:
    std::string_view Name() const override { return "upload"; }
    std::string_view Help() const override { return "reads the indicator's configuration into a file"; }
    std::string Notes() const override {
        return "The reply is written as it came, so the file has no checksum; --skip-checks opens it.\n"
               "On a terminal it asks before it replaces OUT; exit code 1 when the answer is no.\n";
    }
    bool HasListing() const override { return true; }

    void Declare(Options& options) override {
        options.Word(file_, "OUT", "the file to write");
        options.Flag(force_, "--force", "replaces a file that exists");
        link_.Declare(options);
    }

    int Run(Program& program) override {
        NeedPlace(program, file_);
        Link link(program, link_);
        if (!MayReplace(program)) {
            program.Say("nothing was read and nothing was written");
            return kFindings;
        }
        link.Connect();
        Progress progress(program.Ends());
        const std::string dump = ReadDump(program, link, progress);
        progress.Step(program.Model().texts.Text(kOpening));
        WriteUpload(*program.Model().files, program.Model().texts, file_, dump);
        progress.Clear();
        Report(program, dump);
        return kDone;
    }

  private:
    // Asked on a terminal; elsewhere only --force replaces.
    bool MayReplace(Program& program) const {
        if (!IsFile(program, file_) || force_) return true;
        if (!program.Ends().inIsTerminal) NeedFree(program, file_, "--force replaces it");
        program.Ends().err << file_ << ": " << program.Model().texts.Text(kReplaceQuestion) << " [y/N] "
                           << std::flush;
        std::string answer;
        std::getline(program.Ends().in, answer);
        program.StopIfCancelled();
        return answer == "y" || answer == "Y" || answer == "yes";
    }

    void Report(Program& program, const std::string& dump) const {
        CIndicator document(program.Model());
        const ReadReport report = document.Load(file_, true);
        // What the indicator said: the document has a line for all that it did not say.
        const auto lines = ReadLines(dump);
        const auto version = std::find_if(lines.begin(), lines.end(), [](const KeyValue& line) {
            return EqualNoCase(line.key, "VERSION");
        });
        const bool told = version != lines.end();
        program.List(
            [&] {
                return Json{{"file", Utf8(file_)},
                            {"characters", dump.size()},
                            {"indicatorVersion", told ? Json(Utf8(version->value)) : Json()},
                            {"lines", lines.size()},
                            {"notes", report.Count()}};
            },
            [&](std::ostream& out) {
                out << file_ << ": " << Counted(dump.size(), "character", "characters") << ", "
                    << Counted(lines.size(), "parameter line", "parameter lines") << ", firmware "
                    << (told ? Printable(version->value) : "not told") << '\n';
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
