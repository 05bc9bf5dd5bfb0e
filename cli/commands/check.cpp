#include <algorithm>

#include "cli/commands/commands.h"
#include "cli/documents.h"
#include "cli/exit.h"
#include "model/language/text.h"

namespace calyx::cli {

namespace {

constexpr std::size_t kShown = 60;  // characters of a value or line

// What begins a line that is meant for people: the samples and the program's own files use these.
bool IsComment(const ReadNote& note) {
    const std::string_view text = Trim(note.value);
    return note.kind == ReadNote::Kind::TextLine && (text.starts_with(';') || text.starts_with('#'));
}

const char* Word(const ReadNote& note) {
    switch (note.kind) {
        case ReadNote::Kind::TextLine:
            return IsComment(note) ? "comment" : "textLine";
        case ReadNote::Kind::UnknownKey:
            return "unknownKey";
        case ReadNote::Kind::DuplicateKey:
            return "duplicateKey";
        case ReadNote::Kind::ListValue:
            return "listValue";
        case ReadNote::Kind::NotUnderstood:
            return "notUnderstood";
        case ReadNote::Kind::PartlyRead:
            return "partlyRead";
        case ReadNote::Kind::Cut:
            return "cut";
        case ReadNote::Kind::NotWritten:
            return "notWritten";
    }
    return "";
}

std::string Sentence(const ReadNote& note) {
    const std::string value = Quoted(note.value, kShown);
    const std::string became = Quoted(note.became, kShown);
    const std::string key = Printable(note.key, kShown);
    if (!note.reason.empty()) {
        return key + ": " + value +
               (note.became.empty() ? " is not understood. " : " became " + became + ". ") +
               Printable(note.reason);
    }
    switch (note.kind) {
        case ReadNote::Kind::TextLine:
            return (IsComment(note) ? "a comment, not kept: " : "no parameter line, not kept: ") + value;
        case ReadNote::Kind::UnknownKey:
            return key +
                   (note.section.empty() ? " is no known parameter, not kept: "
                                         : " is of no item that is there, not kept: ") +
                   value;
        case ReadNote::Kind::DuplicateKey:
            return key + " stands there again, passed over: " + value + "; the first one counts: " + became;
        case ReadNote::Kind::ListValue:
            return key + ": " + value + " is not in its list; became " + became;
        case ReadNote::Kind::NotUnderstood:
            // Nothing stands in its place: a record, a name.
            return key + ": " + value + " is not understood" +
                   (note.became.empty() ? ", not kept" : "; became " + became);
        case ReadNote::Kind::PartlyRead:
            return key + ": only the start of " + value + " was read; became " + became;
        case ReadNote::Kind::Cut:
            return key + ": " + value + " is too long; became " + became;
        case ReadNote::Kind::NotWritten:
            return key + ": " + value + " has no line as the configuration stands, not kept when it is saved";
    }
    return {};
}

std::string Place(const BrokenRule& rule) {
    return rule.section + (rule.item == 0 ? "" : " " + std::to_string(rule.item)) +
           (rule.key.empty() ? "" : " " + Printable(rule.key));
}

class Check final : public Command {
  public:
    std::string_view Name() const override { return "check"; }
    std::string_view Help() const override { return "opens a file and reports all that is wrong with it"; }
    std::string Notes() const override {
        return "Reported are the lines that reading passed over or changed, with line number and what became "
               "of\n"
               "them, and every broken rule with section, item and key. Exit code 1 when there are any; "
               "lines that\n"
               "begin with \";\" or \"#\" are comments and do not count. Checksum and versions are checked "
               "first.\n";
    }
    bool HasListing() const override { return true; }

    void Declare(Options& options) override {
        options.Word(file_, "FILE", "configuration file");
        opening_.Declare(options);
    }

    int Run(Program& program) override {
        ReadReport report;
        const CIndicator document = opening_.Open(program, file_, &report);
        const auto& notes = report.Notes();
        const auto rules = document.Validate();
        const auto counting = static_cast<std::size_t>(
            std::count_if(notes.begin(), notes.end(), [](const ReadNote& n) { return !IsComment(n); }));
        program.List([&] { return AsJson(document, notes, rules); },
                     [&](std::ostream& out) { Print(out, document, notes, rules); });
        return counting + rules.size() == 0 ? kDone : kFindings;
    }

  private:
    Json AsJson(const CIndicator& document, const std::vector<ReadNote>& notes,
                const std::vector<BrokenRule>& rules) const {
        Json listing;
        listing["file"] = Utf8(file_);
        listing["fileVersion"] = Utf8(document.FileVersion());
        listing["indicatorVersion"] = Utf8(document.IndicatorVersion());
        listing["notes"] = Json::array();
        for (const ReadNote& note : notes) {
            listing["notes"].push_back({{"line", note.line},
                                        {"kind", Word(note)},
                                        {"section", note.section},
                                        {"key", Utf8(note.key)},
                                        {"value", Utf8(note.value)},
                                        {"became", Utf8(note.became)},
                                        {"reason", Utf8(note.reason)}});
        }
        listing["brokenRules"] = Json::array();
        for (const BrokenRule& rule : rules) {
            listing["brokenRules"].push_back({{"section", rule.section},
                                              {"item", rule.item},
                                              {"key", Utf8(rule.key)},
                                              {"text", Utf8(rule.text)}});
        }
        return listing;
    }

    void Print(std::ostream& out, const CIndicator& document, const std::vector<ReadNote>& notes,
               const std::vector<BrokenRule>& rules) const {
        out << file_ << ": written by version " << Printable(document.FileVersion(), kShown)
            << " for firmware " << Printable(document.IndicatorVersion(), kShown) << '\n';
        if (!notes.empty()) out << "Reading passed over or changed:\n";
        for (const ReadNote& note : notes) out << "  line " << note.line << ": " << Sentence(note) << '\n';
        if (!rules.empty()) out << "Broken rules:\n";
        for (const BrokenRule& rule : rules)
            out << "  " << Place(rule) << ": " << Printable(rule.text) << '\n';
        out << Counted(notes.size(), "line", "lines") << " passed over or changed, "
            << Counted(rules.size(), "broken rule", "broken rules") << '\n';
    }

    std::string file_;
    Opening opening_;
};

}  // namespace

std::unique_ptr<Command> MakeCheck() {
    return std::make_unique<Check>();
}

}  // namespace calyx::cli
