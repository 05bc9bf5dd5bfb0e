#include "comm/download.h"

#include "cli/commands/commands.h"
#include "cli/differences.h"
#include "cli/documents.h"
#include "cli/exit.h"
#include "cli/transfer.h"
#include "comm/link_texts.h"
#include "comm/upload.h"

namespace calyx::cli {

namespace {

constexpr int kMostTimeoutMs = 600'000;

class DownloadProgress final : public IDownloadEvents {
  public:
    DownloadProgress(Program& program, Progress& progress) : program_(program), progress_(progress) {}
    void Status(const std::string& text) override { progress_.Step(text); }
    void Line(const std::string&, int number, int total) override {
        progress_.Count(static_cast<std::size_t>(number), static_cast<std::size_t>(total));
    }
    void Notice(const std::string& title, const std::string& text) override {
        progress_.Clear();
        program_.Say(title.empty() ? text : title + ": " + text);
    }

  private:
    Program& program_;
    Progress& progress_;
};

class DownloadCommand final : public Command {
  public:
    std::string_view Name() const override { return "download"; }
    std::string_view Help() const override { return "sends a configuration to the indicator"; }
    std::string Notes() const override {
        return "The lines that the indicator refused and \"Errors: N\" are printed at the end; exit code 1 "
               "when N is not\n"
               "0. --dry-run needs no LINK: it prints the lines in sending order for --firmware and sends "
               "nothing.\n";
    }
    bool HasListing() const override { return true; }

    void Declare(Options& options) override {
        options.Word(file_, "FILE", "configuration file");
        groups_.Declare(options);
        options.Text(program_, "--program", "X.cod", "the compiled Scrivo program, which is sent as well");
        options.Number(timeoutMs_, "--timeout-ms", "N", "wait for the answer to a line; 10000 without it", 1,
                       kMostTimeoutMs);
        options.Flag(haltOnError_, "--halt-on-error", "ends with the first line that is refused");
        options.Flag(changed_, "--changed", "sends only what differs (not there yet)");
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
                                .haltOnError = haltOnError_};
        if (program_) options.mask |= download_option::chkCODFile;
        if (options.mask & download_option::chkCODFile && !program_)
            throw UsageError("give the program to send with --program");
        const CIndicator document = opening_.Open(program, file_);
        return dryRun_ ? PrintLines(program, document, options) : Send(program, document, options);
    }

  private:
    void CheckUsage(Program& program) const {
        if (changed_) throw UsageError("--changed is not there yet; without it all lines are sent");
        if (dryRun_ && (verify_ || backup_))
            throw UsageError("--dry-run sends nothing, so there is nothing to verify or to back up");
        if (!dryRun_ && (firmware_.prefix || firmware_.cb2)) {
            throw UsageError("--firmware and --cb2 are for --dry-run; otherwise the indicator tells them");
        }
        if (backup_) NeedFree(program, *backup_, false);
    }

    int PrintLines(Program& program, const CIndicator& document, const DownloadOptions& options) const {
        firmware_.Apply(program);
        const auto lines = SendingOrder(document, options, program.Model().target.Gated());
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
        Progress progress(program.Ends());
        if (backup_) {
            WriteUpload(*program.Model().files, program.Model().texts, *backup_,
                        ReadDump(program, link, progress));
        }
        DownloadProgress events(program, progress);
        CDownload download(link.Comm(), program.App().cancel, events);
        const Target target = program.Model().target.Gated();
        const DownloadReport report = download.Run(document, options, target);
        progress.End(report.status);
        program.StopIfCancelled();

        const bool complete = report.end == DownloadReport::End::Complete;
        std::optional<CIndicator> held;
        if (verify_ && complete) held = ReadIndicator(program, link, progress);
        const ChangeSet changes = held ? Difference(SentLines(document, options.mask, target),
                                                    SentLines(*held, options.mask, target))
                                       : ChangeSet();
        Print(program, report, changes, document, held ? *held : document);
        FailUnlessSent(program, report);
        return report.failed.empty() && changes.Empty() ? kDone : kFindings;
    }

    void Print(Program& program, const DownloadReport& report, const ChangeSet& changes,
               const CIndicator& document, const CIndicator& held) const {
        program.List(
            [&] {
                Json failed = Json::array();
                for (const FailedLine& line : report.failed)
                    failed.push_back({{"line", Utf8(line.line)}, {"reason", Utf8(line.reason)}});
                Json listing{{"complete", report.end == DownloadReport::End::Complete},
                             {"status", Utf8(report.status)},
                             {"lines", report.total},
                             {"accepted", report.accepted},
                             {"errors", report.failed.size()},
                             {"failed", std::move(failed)}};
                if (verify_) listing["differences"] = DifferencesJson(changes, document, held);
                return listing;
            },
            [&](std::ostream& out) {
                PrintDifferences(out, program.Model(), changes, document, held);
                for (const FailedLine& line : report.failed) out << line.line << ": " << line.reason << '\n';
                out << ErrorsText(report.failed.size()) << '\n';
            });
    }

    // Lines that were refused are findings; that the rest never went out is an error.
    static void FailUnlessSent(Program& program, const DownloadReport& report) {
        using End = DownloadReport::End;
        const auto fail = [&](int text) {
            throw Error(code::kLink, "Calyx.CDownload.Run", program.Model().texts.Text(text));
        };
        if (report.end == End::NotInSetupMode) fail(link_text::kNotInSetupMode);
        if (report.end == End::Lost || (report.end == End::Failed && report.failed.empty()))
            fail(link_text::kFailed);
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
