#include <algorithm>

#include "cli/commands/commands.h"
#include "cli/exit.h"
#include "cli/program.h"
#include "cli/reference.h"
#include "cli/text.h"
#include "model/language/text.h"

namespace calyx::cli {

namespace {

bool Contains(const std::string& text, const std::string& part) {
    return Upper(text).find(Upper(part)) != std::string::npos;
}

class Keys final : public Command {
  public:
    std::string_view Name() const override { return "keys"; }
    std::string_view Help() const override { return "prints the reference of all parameters"; }
    std::string Notes() const override {
        return "PATTERN is a key with \"*\" for any characters and \"?\" for one, or a part of a key or "
               "label; case does\n"
               "not count. In a key \"#n\" stands for the item's number. Exit code 1 when nothing fits.\n";
    }
    bool HasListing() const override { return true; }

    void Declare(Options& options) override {
        options.Word(pattern_, "PATTERN", "only the parameters that fit");
        options.Flag(markdown_, "--markdown", "as a document by section and page heading");
    }

    int Run(Program& program) override {
        if (markdown_ && program.WantsJson()) throw UsageError("give --markdown or --json, not both");
        std::vector<Parameter> parameters = CollectReference(program.Model());
        std::erase_if(parameters, [this](const Parameter& p) { return !Fits(p); });
        if (parameters.empty()) {
            program.Say("no parameter fits " + pattern_.value_or("*"));
            return kFindings;
        }
        if (markdown_) {
            program.Out() << ReferenceMarkdown(parameters);
        } else {
            program.List([&] { return AsJson(parameters); },
                         [&](std::ostream& out) {
                             for (const Parameter& p : parameters) Print(out, p);
                         });
        }
        return kDone;
    }

  private:
    bool Fits(const Parameter& p) const {
        return !pattern_ || FitsPattern(p.key, *pattern_) || Contains(p.key, *pattern_) ||
               Contains(p.label, *pattern_);
    }

    static void Print(std::ostream& out, const Parameter& p) {
        out << p.key << "  " << p.label << '\n';
        out << "  section   " << p.sectionTitle << (p.heading.empty() ? "" : ", " + p.heading) << '\n';
        out << "  value     ";
        if (p.words.empty()) {
            out << ValueWords(p) << '\n';
        } else {
            out << "a word of the list " << p.list << '\n';
            for (const auto& word : p.words) out << "            " << word.key << "  " << word.text << '\n';
        }
        out << "  default   " << (p.initial.empty() ? "empty" : p.initial) << '\n';
        out << "  firmware  " << p.firmware << '\n';
        if (!p.help.empty()) out << "  " << p.help << '\n';
    }

    static Json AsJson(const std::vector<Parameter>& parameters) {
        Json listing = Json::array();
        for (const Parameter& p : parameters) {
            Json words = Json::array();
            for (const auto& word : p.words)
                words.push_back({{"key", Utf8(word.key)}, {"text", Utf8(word.text)}});
            listing.push_back({{"key", p.key},
                               {"label", Utf8(p.label)},
                               {"section", p.section},
                               {"heading", Utf8(p.heading)},
                               {"form", p.form},
                               {"range", p.range},
                               {"unit", Utf8(p.unit)},
                               {"list", p.list},
                               {"words", std::move(words)},
                               {"default", Utf8(p.initial)},
                               {"firmware", p.firmware},
                               {"help", Utf8(p.help)}});
        }
        return listing;
    }

    std::optional<std::string> pattern_;
    bool markdown_ = false;
};

}  // namespace

std::unique_ptr<Command> MakeKeys() {
    return std::make_unique<Keys>();
}

}  // namespace calyx::cli
