#include "cli/commands/commands.h"
#include "cli/documents.h"
#include "cli/exit.h"
#include "cli/link.h"
#include "cli/text.h"
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
        bool allAnswered = true;
        Json listing = Json::array();
        for (const std::string& line : lines) {
            const Answer answer = line.find('=') != std::string::npos ? Set(link, line) : Ask(link, line);
            program.StopIfCancelled();
            allAnswered = allAnswered && answer.good;
            listing.push_back({{"line", Utf8(line)}, {"answer", Utf8(answer.text)}, {"good", answer.good}});
            if (!program.WantsJson())
                program.Out() << Printable(line) << ": " << Shown(answer.text) << std::flush;
            if (answer.lost)
                throw Error(code::kLink, "Calyx.CIndicatorComm.Send",
                            program.Model().texts.Format(link_text::kLost, {link.Comm().Where()}));
        }
        program.List([&] { return listing; }, [](std::ostream&) {});
        return allAnswered ? kDone : kFindings;
    }

  private:
    struct Answer {
        std::string text;
        bool good = false;
        bool lost = false;
    };

    Answer Set(Link& link, const std::string& line) const {
        switch (link.Comm().Send(line, timeoutMs_.value_or(DownloadOptions{}.timeoutMs)).result) {
            case SendResult::Accepted:
                return {"OK", true};
            case SendResult::Refused:
                return {"??"};
            case SendResult::Lost:
                return {"no answer", false, true};
            case SendResult::NoAnswer:
            case SendResult::Cancelled:
                break;
        }
        return {"no answer"};
    }

    static Answer Ask(Link& link, const std::string& line) {
        const std::string reply = WithLineFeeds(link.Comm().GetData(line).value_or(""));
        const std::string_view text = std::string_view(reply).substr(0, reply.find_last_not_of('\n') + 1);
        if (text.empty()) return {"no answer"};
        return {std::string(text), text != "??"};
    }

    static std::string Shown(const std::string& answer) {
        std::string shown;
        ForEachLine(answer, [&](std::string_view line) { shown += Printable(line) + "\n"; });
        return shown;
    }

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
