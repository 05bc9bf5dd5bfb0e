#include <algorithm>
#include <istream>
#include <system_error>

#include "cli/commands/answers.h"
#include "cli/commands/commands.h"
#include "cli/exit.h"
#include "cli/link.h"
#include "comm/download_plan.h"
#include "comm/link_texts.h"
#include "comm/macro_keys.h"
#include "model/language/reason.h"

namespace calyx::cli {

namespace {

constexpr const char* kHelp =
    "/f1 to /f12        sends the macro of the key; the key itself and Enter do the same\n"
    "/macros            lists the macros\n"
    "/macro N TEXT      sets the macro of key N, \"\\n\" between its lines; without TEXT it is free again\n"
    "/help              this list\n"
    "/quit              ends, as the end of the input does\n"
    "//TEXT             sends \"/TEXT\"\n";

// What terminals send for the keys F1 to F12.
constexpr std::string_view kKeys[][2] = {
    {"\x1bOP", "\x1b[11~"},   {"\x1bOQ", "\x1b[12~"},   {"\x1bOR", "\x1b[13~"},   {"\x1bOS", "\x1b[14~"},
    {"\x1b[15~", "\x1b[15~"}, {"\x1b[17~", "\x1b[17~"}, {"\x1b[18~", "\x1b[18~"}, {"\x1b[19~", "\x1b[19~"},
    {"\x1b[20~", "\x1b[20~"}, {"\x1b[21~", "\x1b[21~"}, {"\x1b[23~", "\x1b[23~"}, {"\x1b[24~", "\x1b[24~"}};

// The number of a macro key, from 0: "f3", "3". Nothing: it names none.
std::optional<std::size_t> KeyNumber(std::string_view name) {
    if (StartsNoCase(name, "f")) name.remove_prefix(1);
    const auto number = ReadInteger(name);
    if (!number || !number->whole || number->value < 1 || number->value > 12) return std::nullopt;
    return static_cast<std::size_t>(number->value - 1);
}

class Terminal final : public Command {
  public:
    std::string_view Name() const override { return "terminal"; }
    std::string_view Help() const override {
        return "sends typed lines to the indicator and shows the answers";
    }
    std::string Notes() const override {
        return "Each line goes out as it is typed and waits for its answer. Lines that begin with \"/\" are "
               "for "
               "the\nterminal itself; the macros are those of the desktop program:\n" +
               std::string(kHelp) + "Exit code 1 when a line was refused or not answered.\n";
    }

    void Declare(Options& options) override { link_.Declare(options); }

    int Run(Program& program) override {
        const std::string file = program.App().folders.userData + "macros.ini";
        macros_ = LoadMacroKeys(*program.Model().files, file);
        Link link(program, link_);
        program.Say(Printable(link.Connect(Link::Bus::Any)) + " at " + link.Comm().Where() + "; /help helps");
        CSendFile::IEvents quiet;
        CSendFile sending(link.Comm(), program.App().cancel, quiet);
        std::string line;
        while (Ask(program, line)) {
            if (line == "/quit") break;
            if (line.starts_with("/macro ")) {
                SetMacro(program, file, line);
            } else if (const auto key = Pressed(line)) {
                Press(program, sending, *key);
            } else if (line.starts_with('/') && !line.starts_with("//")) {
                Tell(program, line);
            } else {
                Send(program, sending, before_ + (line.starts_with('/') ? line.substr(1) : line));
                before_.clear();
            }
            program.StopIfCancelled();
        }
        return allGood_ ? kDone : kFindings;
    }

  private:
    // False: there is no more input.
    bool Ask(Program& program, std::string& line) const {
        Console& ends = program.Ends();
        if (ends.inIsTerminal) ends.err << "> " << Printable(before_) << std::flush;
        const bool more = static_cast<bool>(std::getline(ends.in, line));
        program.StopIfCancelled();
        if (line.ends_with('\r')) line.pop_back();
        return more;
    }

    static std::optional<std::size_t> Pressed(std::string_view line) {
        for (std::size_t i = 0; i < std::size(kKeys); ++i) {
            if (line == kKeys[i][0] || line == kKeys[i][1]) return i;
        }
        return StartsNoCase(line, "/f") ? KeyNumber(line.substr(1)) : std::nullopt;
    }

    // A macro without Enter is put before what is typed next.
    void Press(Program& program, CSendFile& sending, std::size_t number) {
        const MacroKey& key = macros_[number];
        if (key.text.empty()) return program.Say("F" + std::to_string(number + 1) + " has no macro");
        if (!key.sendsEnter) {
            before_ += key.text;
            if (!program.Ends().inIsTerminal) return;
            return program.Say("the macro stands before the next line");
        }
        ForEachLine(key.text, [&](std::string_view line) {
            program.Out() << Printable(line) << '\n';
            Send(program, sending, std::string(line));
        });
    }

    void Send(Program& program, CSendFile& sending, const std::string& line) {
        if (Trim(line).empty()) return;
        const CSendFile::Report report = sending.Run(line, DownloadOptions{}.timeoutMs, false);
        program.StopIfCancelled();
        for (const auto& answer : report.answers) program.Out() << AnswerLines(answer) << std::flush;
        allGood_ = allGood_ && report.Failed() == 0;
        if (report.end == CSendFile::Report::End::Lost)
            throw Error(code::kLink, "Calyx.CIndicatorComm.Send",
                        program.Model().texts.Text(link_text::kNotConnected));
    }

    void SetMacro(Program& program, const std::string& file, std::string_view line) {
        line.remove_prefix(line.find(' ') + 1);
        const std::size_t blank = std::min(line.find(' '), line.size());
        const auto number = KeyNumber(line.substr(0, blank));
        if (!number) return program.Say("/macro N TEXT: N is a key from 1 to 12");
        std::string text(line.substr(std::min(blank + 1, line.size())));
        for (std::size_t at = text.find("\\n"); at != std::string::npos; at = text.find("\\n", at))
            text.replace(at, 2, "\n");
        macros_[*number] = {.caption = text.substr(0, text.find('\n')), .text = text};
        try {
            SaveMacroKeys(program.App().files, file, macros_);
        } catch (const std::system_error& failure) {
            program.Say("the macro is not kept: " + Reason(failure));
        }
    }

    void Tell(Program& program, const std::string& line) const {
        if (line == "/help") {
            program.Out() << kHelp << std::flush;
            return;
        }
        if (line != "/macros")
            return program.Say(Printable(line) + " is nothing that the terminal knows; /help helps");
        for (std::size_t i = 0; i < macros_.size(); ++i) {
            if (macros_[i].text.empty()) continue;
            program.Out() << 'F' << i + 1 << "  " << Printable(macros_[i].caption) << ": "
                          << Printable(macros_[i].text) << '\n';
        }
        program.Out() << std::flush;
    }

    LinkOptions link_;
    MacroKeys macros_;
    std::string before_;  // of the next line, from a macro
    bool allGood_ = true;
};

}  // namespace

std::unique_ptr<Command> MakeTerminal() {
    return std::make_unique<Terminal>();
}

}  // namespace calyx::cli
