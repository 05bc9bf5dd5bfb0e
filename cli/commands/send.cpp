#include "cli/commands/answers.h"
#include "cli/commands/commands.h"
#include "cli/documents.h"
#include "cli/exit.h"
#include "cli/link.h"
#include "comm/download.h"
#include "comm/link_texts.h"
#include "model/language/text.h"

namespace calyx::cli {

namespace {

constexpr int kMostTimeoutMs = 600'000;
constexpr std::size_t kShown = 60;  // characters of a line in a message

class Send final : public Command {
  public:
    std::string_view Name() const override { return "send"; }
    std::string_view Help() const override {
        return "sends single lines to the indicator and prints the answers";
    }
    std::string Notes() const override {
        return "KEY=VALUE lines wait for OK or ??. Whatever else a line is, all that the indicator says to "
               "it is\n"
               "printed, control characters as \\x07. Exit code 1 when a line was refused or not answered.\n";
    }
    bool HasListing() const override { return true; }

    void Declare(Options& options) override {
        options.Each(lines_, "--line", "TEXT", "a line to send; can be given more than once");
        options.Text(file_, "--file", "FILE", "a file of lines to send, after those of --line");
        options.Number(timeoutMs_, "--timeout-ms", "N",
                       "wait for OK or ?? in each of six attempts; 10000 without it", 1, kMostTimeoutMs);
        link_.Declare(options);
    }

    int Run(Program& program) override {
        for (const std::string& line : lines_) {
            if (line.find_first_of("\r\n") != std::string::npos)
                throw UsageError(Quoted(line, kShown) + " has a line end in it; give --line for each line");
        }
        std::vector<std::string> lines = lines_;
        if (file_) AppendFile(program, lines);
        if (lines.empty()) throw UsageError("nothing to send; give --line or --file");
        Link link(program, link_);
        link.Connect(Link::Bus::Any);  // so that the bus parameter itself can be switched off
        std::string text;
        for (const std::string& line : lines) text += line + "\n";
        Answers answers(program);
        CSendFile sending(link.Comm(), program.App().cancel, answers);
        const auto report = sending.Run(text, timeoutMs_.value_or(DownloadOptions{}.timeoutMs), false);
        program.StopIfCancelled();
        program.List([&] { return answers.listing; }, [](std::ostream&) {});
        if (report.end == CSendFile::Report::End::Lost)
            throw Error(code::kLink, "Calyx.CIndicatorComm.Send",
                        program.Model().texts.Format(link_text::kLost, {link.Comm().Where()}));
        return report.Failed() == 0 ? kDone : kFindings;
    }

  private:
    // Prints each answer as it comes.
    class Answers final : public CSendFile::IEvents {
      public:
        explicit Answers(Program& program) : program_(program) {}
        void Answered(const CSendFile::Answer& answer) override {
            listing.push_back(
                {{"line", Utf8(answer.line)}, {"answer", Utf8(Words(answer))}, {"good", answer.good}});
            if (!program_.WantsJson())
                program_.Out() << Printable(answer.line) << ": " << AnswerLines(answer) << std::flush;
        }
        Json listing = Json::array();

      private:
        Program& program_;
    };

    void AppendFile(Program& program, std::vector<std::string>& lines) const {
        ForEachLine(ReadWhole(program, *file_), [&](std::string_view line) {
            if (!Trim(line).empty()) lines.emplace_back(line);
        });
    }

    std::vector<std::string> lines_;
    std::optional<std::string> file_;
    std::optional<int> timeoutMs_;
    LinkOptions link_;
};

}  // namespace

std::unique_ptr<Command> MakeSend() {
    return std::make_unique<Send>();
}

}  // namespace calyx::cli
