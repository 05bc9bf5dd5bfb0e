#include <algorithm>
#include <iterator>

#include "cli/commands/commands.h"
#include "cli/differences.h"
#include "cli/documents.h"
#include "cli/exit.h"
#include "model/document/kept.h"
#include "model/language/text.h"

namespace calyx::cli {

namespace {

class Set final : public Command {
  public:
    std::string_view Name() const override { return "set"; }
    std::string_view Help() const override { return "changes values of a file"; }
    std::string Notes() const override {
        return "Only what is named changes. What cannot be taken is reported with its reason, exit code 1; "
               "the rest\n"
               "is saved, and nothing is written when nothing was taken. LINES may be a configuration file; "
               "empty\n"
               "lines, comments (\";\", \"#\") and the file's heading are passed over in it.\n";
    }
    bool HasListing() const override { return true; }

    void Declare(Options& options) override {
        options.Word(file_, "FILE", "configuration file");
        options.Words(assignments_, "KEY=VALUE...", "new values; a value may be empty", false);
        options.Text(from_, "--from", "LINES", "file of KEY=VALUE lines; \"-\" is standard input");
        options.Text(output_, "--output", "OUT", "saves under this name and leaves FILE as it is");
        opening_.Declare(options);
    }

    int Run(Program& program) override {
        std::vector<KeyValue> lines;
        std::vector<Refusal> refused;
        for (const std::string& assignment : assignments_) lines.push_back(Assignment(assignment));
        if (from_) TakeLines(ReadFrom(program), lines, refused);
        if (lines.empty() && refused.empty())
            throw UsageError("nothing to set; give KEY=VALUE or --from LINES");

        const auto turn = TurnFor(program, output_.value_or(file_));
        CIndicator document = opening_.OpenForChange(program, file_);
        const CIndicator before = document;
        auto taken = document.Import(lines);
        const bool some = lines.size() > taken.refused.size() || !taken.changes.Empty();
        std::move(taken.refused.begin(), taken.refused.end(), std::back_inserter(refused));
        if (some) SaveChanged(document, file_, output_.value_or(file_));
        std::vector<std::string> keys;
        for (const KeyValue& line : lines) keys.push_back(line.key);
        auto lost = NotKept(before.Lines(), document, keys);
        std::move(lost.begin(), lost.end(), std::back_inserter(refused));

        ListDifferences(program, taken.changes, before, document);
        SayRefused(program, refused);
        if (!some) program.Say("nothing was taken and nothing was written");
        return refused.empty() ? kDone : kFindings;
    }

  private:
    static KeyValue Assignment(const std::string& text) {
        const std::size_t equals = text.find('=');
        if (equals == std::string::npos || equals == 0)
            throw UsageError(Quoted(text, 60) + " is not KEY=VALUE");
        if (text.find_first_of("\r\n") != std::string::npos) {
            throw UsageError(Quoted(text, 60) + " has a line end in it, which a value cannot hold");
        }
        return {text.substr(0, equals), text.substr(equals + 1)};
    }

    static void TakeLines(const std::string& text, std::vector<KeyValue>& lines,
                          std::vector<Refusal>& refused) {
        ForEachLine(text, [&](std::string_view line) {
            const std::string_view trimmed = Trim(line);
            const bool passed = trimmed.empty() || trimmed == "[BEGIN]" || trimmed == "[END]" ||
                                std::string_view(";#@").find(trimmed.front()) != std::string_view::npos;
            if (passed) return;
            const std::size_t equals = line.find('=');
            if (equals == std::string_view::npos || equals == 0) {
                refused.push_back({std::string(line.substr(0, equals)), {}, "it is not KEY=VALUE"});
            } else {
                lines.push_back({std::string(line.substr(0, equals)), std::string(line.substr(equals + 1))});
            }
        });
    }

    std::string ReadFrom(Program& program) const {
        if (*from_ == "-") return {std::istreambuf_iterator<char>(program.Ends().in), {}};
        return ReadWhole(program, *from_);
    }

    std::string file_;
    std::vector<std::string> assignments_;
    std::optional<std::string> from_, output_;
    Opening opening_;
};

}  // namespace

std::unique_ptr<Command> MakeSet() {
    return std::make_unique<Set>();
}

}  // namespace calyx::cli
