#include <algorithm>
#include <iterator>

#include "cli/commands/commands.h"
#include "cli/differences.h"
#include "cli/documents.h"
#include "cli/exit.h"
#include "cli/text.h"

namespace calyx::cli {

namespace {

class Merge final : public Command {
  public:
    std::string_view Name() const override { return "merge"; }
    std::string_view Help() const override { return "takes lines of another file into a file"; }
    std::string Notes() const override {
        return "A PATTERN is a key, or a key with \"*\" for any characters and \"?\" for one; case does not "
               "count. Lines\n"
               "that only FILE has stay. What changed is listed. Exit code 1 when OTHER has no line for a "
               "PATTERN;\n"
               "when it has none at all, nothing is written.\n";
    }
    bool HasListing() const override { return true; }

    void Declare(Options& options) override {
        options.Word(file_, "FILE", "configuration file");
        options.Word(other_, "OTHER", "configuration file whose lines are taken");
        options.List(patterns_, "--keys", "PATTERN...", "takes only the lines of these keys");
        options.Text(output_, "--output", "OUT", "the file to write; may be FILE", Options::Need::Required);
        opening_.Declare(options);
    }

    int Run(Program& program) override {
        const auto turn = TurnFor(program, *output_);
        CIndicator document = opening_.OpenForChange(program, file_);
        const CIndicator before = document;
        const CIndicator other = opening_.Open(program, other_);
        const auto lines = other.Lines();
        std::vector<KeyValue> chosen;
        std::copy_if(lines.begin(), lines.end(), std::back_inserter(chosen),
                     [this](const KeyValue& line) { return Chosen(line.key); });

        bool missing = false;
        for (const std::string& pattern : patterns_) {
            if (HasLine(lines, pattern)) continue;
            missing = true;
            program.Say(other_ + " has no line for " + pattern);
        }
        if (chosen.empty()) {
            program.Say("nothing was taken and nothing was written");
            return kFindings;
        }
        auto told = document.Merge(chosen).refused;
        SaveChanged(document, file_, *output_);
        ListDifferences(program, Difference(before.Lines(), document.Lines()), before, document);
        std::vector<std::string> keys;
        for (const KeyValue& line : chosen) keys.push_back(line.key);
        auto lost = document.NotKept(keys);
        std::move(lost.begin(), lost.end(), std::back_inserter(told));
        SayRefused(program, told);
        return missing || !told.empty() ? kFindings : kDone;
    }

  private:
    static bool HasLine(const std::vector<KeyValue>& lines, const std::string& pattern) {
        return std::any_of(lines.begin(), lines.end(),
                           [&](const KeyValue& line) { return FitsPattern(line.key, pattern); });
    }
    bool Chosen(const std::string& key) const {
        return patterns_.empty() || std::any_of(patterns_.begin(), patterns_.end(),
                                                [&](const std::string& p) { return FitsPattern(key, p); });
    }

    std::string file_, other_;
    std::vector<std::string> patterns_;
    std::optional<std::string> output_;
    Opening opening_;
};

}  // namespace

std::unique_ptr<Command> MakeMerge() {
    return std::make_unique<Merge>();
}

}  // namespace calyx::cli
