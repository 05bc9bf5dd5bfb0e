#include "comm/download.h"

#include <algorithm>

#include "cli/commands/commands.h"
#include "cli/differences.h"
#include "cli/documents.h"
#include "cli/exit.h"
#include "cli/safe_transfer.h"
#include "cli/transfer.h"
#include "comm/upload.h"
#include "model/language/text.h"

namespace calyx::cli {

namespace {

constexpr int kMostTimeoutMs = 600'000;

class DownloadCommand final : public Command {
  public:
    std::string_view Name() const override { return "download"; }
    std::string_view Help() const override { return "sends a configuration to the indicator"; }
    std::string Notes() const override {
        return "The lines that the indicator refused and \"Errors: N\" are printed at the end; exit code 1 "
               "when N is not\n"
               "0. --dry-run needs no LINK: it prints the lines in sending order for --firmware and sends "
               "nothing.\n"
               "--changed keeps what the indicator held in the folder backups of the user's folder. When the "
               "link is lost\nor Ctrl+C is pressed meanwhile, the command resume goes on.\n";
    }
    bool HasListing() const override { return true; }

    void Declare(Options& options) override {
        options.Word(file_, "FILE", "configuration file");
        groups_.Declare(options);
        options.Text(program_, "--program", "X.cod", "the compiled Scrivo program, which is sent as well");
        options.Number(timeoutMs_, "--timeout-ms", "N", "wait for the answer to a line; 10000 without it", 1,
                       kMostTimeoutMs);
        options.Flag(haltOnError_, "--halt-on-error",
                     "ends with the first line that is refused, as the program's setting may say, too");
        options.Flag(changed_, "--changed",
                     "reads the indicator first, sends only what differs and reads back");
        options.Flag(verify_, "--verify", "reads back afterwards and lists what differs");
        options.Text(backup_, "--backup", "FILE", "keeps what the indicator held before in this new file");
        options.Flag(dryRun_, "--dry-run", "prints the lines and sends nothing");
        firmware_.Declare(options);
        opening_.Declare(options);
        link_.Declare(options);
    }

    int Run(Program& program) override {
        CheckUsage(program);
        DownloadOptions options{.mask = groups_.Mask(),
                                .programFile = program_.value_or(""),
                                .timeoutMs = timeoutMs_.value_or(DownloadOptions{}.timeoutMs),
                                .haltOnError = haltOnError_ || program.App().settings.HaltOnDownloadError};
        if (program_) options.mask |= download_option::chkCODFile;
        if (options.mask & download_option::chkCODFile && Trim(options.programFile).empty())
            throw UsageError("give the program to send with --program");
        const CIndicator document = opening_.Open(program, file_);
        return dryRun_ ? PrintLines(program, document, options) : Send(program, document, options);
    }

  private:
    // What the indicator was found to hold afterwards.
    struct ReadBack {
        std::optional<Held> held;
        std::optional<Error> failure;  // it could not be read
        std::size_t compared = 0;      // lines that were to be there
        ChangeSet changes;
    };

    void CheckUsage(Program& program) const {
        if (dryRun_ && changed_)
            throw UsageError("--changed reads the indicator; --dry-run does without one");
        if (dryRun_ && (verify_ || backup_))
            throw UsageError("--dry-run sends nothing, so there is nothing to verify or to back up");
        if (!dryRun_ && (firmware_.prefix || firmware_.cb2)) {
            throw UsageError("--firmware and --cb2 are for --dry-run; otherwise the indicator tells them");
        }
        if (!backup_) return;
        NeedFree(program, *backup_, "choose another name");
        NeedPlace(program, *backup_);
    }

    int PrintLines(Program& program, const CIndicator& document, const DownloadOptions& options) const {
        firmware_.Apply(program);
        const Target target = program.Model().target.Gated();
        for (const DownloadStep& step : PlanDownload(document, options, target)) {
            if (step.widgetsTooMany == 0) continue;
            program.Say(TooManyWidgetsTitle(step.widgetsTooMany) + ": " + TooManyWidgetsText());
        }
        const auto lines = SendingOrder(document, options, target);
        program.List(
            [&] {
                Json listing = Json::array();
                for (const std::string& line : lines) listing.push_back(Utf8(line));
                return listing;
            },
            [&](std::ostream& out) {
                for (const std::string& line : lines) out << line << '\n';
            });
        return kDone;
    }

    int Send(Program& program, const CIndicator& document, const DownloadOptions& options) const {
        Link link(program, link_);
        link.Connect();
        if (changed_) return SendChanged(program, link, document, file_, options, backup_);
        Progress progress(program.Ends());
        if (backup_) {
            WriteUpload(*program.Model().files, program.Model().texts, *backup_,
                        ReadDump(program, link, progress));
        }
        const DownloadReport report = SendAll(program, link, document, file_, options, backup_, progress);
        program.StopIfCancelled();

        ReadBack back;
        if (verify_ && report.end == DownloadReport::End::Complete)
            back = Verify(program, link, progress, document, options.mask);
        Print(program, report, back, document);
        FailUnlessSent(report);
        if (back.failure) throw Error(*back.failure);
        return report.failed.empty() && back.changes.Empty() ? kDone : kFindings;
    }

    // What was sent and refused is to be told even when reading back fails.
    static ReadBack Verify(Program& program, Link& link, Progress& progress, const CIndicator& document,
                           unsigned groups) {
        const Target target = program.Model().target.Gated();
        ReadBack back;
        try {
            back.held = ReadIndicator(program, link, progress);
            back.compared = SentLines(document, groups, target).size();
            back.changes = AgainstIndicator(document, *back.held, groups, target);
        } catch (const Error& error) {
            program.StopIfCancelled();
            back.failure = error;
        }
        return back;
    }

    void Print(Program& program, const DownloadReport& report, const ReadBack& back,
               const CIndicator& document) const {
        program.List(
            [&] {
                Json failed = Json::array();
                for (const FailedLine& line : report.failed)
                    failed.push_back({{"line", Utf8(line.line)}, {"reason", Utf8(line.reason)}});
                return Json{
                    {"complete", report.end == DownloadReport::End::Complete},
                    {"status", Utf8(report.status)},
                    {"lines", report.total},
                    {"accepted", report.accepted},
                    {"errors", report.failed.size()},
                    {"failed", std::move(failed)},
                    {"verified", back.held.has_value()},
                    {"differences",
                     back.held ? DifferencesJson(back.changes, document, back.held->document) : Json()}};
            },
            [&](std::ostream& out) {
                if (back.held) PrintDifferences(out, back.changes, document, back.held->document);
                if (verify_) out << ReadBackText(report, back) << '\n';
                for (const FailedLine& line : report.failed)
                    out << Printable(line.line) << ": " << line.reason << '\n';
                out << ErrorsText(report.failed.size()) << '\n';
            });
    }

    static std::string ReadBackText(const DownloadReport& report, const ReadBack& back) {
        if (report.end != DownloadReport::End::Complete)
            return "not read back: the download did not complete";
        if (!back.held) return "not read back: " + Printable(back.failure->Description());
        const auto& changes = back.changes.Changes();
        const auto wrong = static_cast<std::size_t>(std::count_if(
            changes.begin(), changes.end(), [](const Change& c) { return c.before.has_value(); }));
        return "read back: " + Counted(back.compared - wrong, "line", "lines") + " equal, " +
               std::to_string(changes.size()) + " differ";
    }

    // Lines that were refused are findings; that the rest never went out is an error.
    static void FailUnlessSent(const DownloadReport& report) {
        using End = DownloadReport::End;
        const bool findings = report.end == End::Complete || !report.failed.empty();
        if (findings && report.reason.empty()) return;
        throw Error(code::kLink, "Calyx.CDownload.Run",
                    report.reason.empty() ? report.status : report.reason);
    }

    std::string file_;
    Groups groups_;
    std::optional<std::string> program_, backup_;
    std::optional<int> timeoutMs_;
    bool haltOnError_ = false, changed_ = false, verify_ = false, dryRun_ = false;
    Firmware firmware_;
    Opening opening_;
    LinkOptions link_;
};

}  // namespace

std::unique_ptr<Command> MakeDownload() {
    return std::make_unique<DownloadCommand>();
}

}  // namespace calyx::cli
