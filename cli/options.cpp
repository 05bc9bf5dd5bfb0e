#include "cli/options.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <utility>

#include "cli/exit.h"

namespace calyx::cli {

struct Options::Parser {
    CLI::App app;
};

Options::Options(std::string program)
    : program_(std::move(program)), groups_(1), parser_(std::make_unique<Parser>()) {
    // A name that begins with "/" is a path on every platform.
    parser_->app.allow_windows_style_options(false);
}

Options::~Options() = default;

void Options::Show(std::string form, std::string usage, std::string_view help) {
    entries_.push_back({std::move(form), std::move(usage), std::string(help), groups_.size() - 1});
}

void Options::ShowOption(std::string_view name, std::string_view form, std::string_view help, Need need) {
    std::string shown(name);
    if (!form.empty()) shown.append(" ").append(form);
    Show(shown, need == Need::Required ? shown : "[" + shown + "]", help);
}

void Options::Word(std::string& value, std::string_view name, std::string_view help) {
    parser_->app.add_option(std::string(name), value)->required();
    Show(std::string(name), std::string(name), help);
}

void Options::Word(std::optional<std::string>& value, std::string_view name, std::string_view help) {
    parser_->app.add_option_function<std::string>(std::string(name),
                                                  [&value](const std::string& word) { value = word; });
    Show(std::string(name), "[" + std::string(name) + "]", help);
}

void Options::Words(std::vector<std::string>& values, std::string_view name, std::string_view help,
                    bool needed) {
    // The parser takes no "=" in a name.
    std::string plain(name.substr(0, name.find("...")));
    std::replace(plain.begin(), plain.end(), '=', '-');
    CLI::Option* words = parser_->app.add_option(plain, values);
    if (needed) words->required();
    Show(std::string(name), needed ? std::string(name) : "[" + std::string(name) + "]", help);
}

void Options::Text(std::optional<std::string>& value, std::string_view name, std::string_view form,
                   std::string_view help, Need need) {
    parser_->app
        .add_option_function<std::string>(std::string(name),
                                          [&value](const std::string& text) { value = text; })
        ->required(need == Need::Required);
    ShowOption(name, form, help, need);
}

void Options::Number(std::optional<int>& value, std::string_view name, std::string_view form,
                     std::string_view help, int least, int most) {
    parser_->app.add_option_function<int>(std::string(name), [&value](int number) { value = number; })
        ->check(CLI::Range(least, most));
    ShowOption(name, form, help, Need::Optional);
}

void Options::Each(std::vector<std::string>& values, std::string_view name, std::string_view form,
                   std::string_view help) {
    parser_->app.add_option(std::string(name), values)->allow_extra_args(false);
    ShowOption(name, form, help, Need::Optional);
    entries_.back().usage += "...";
}

void Options::List(std::vector<std::string>& values, std::string_view name, std::string_view form,
                   std::string_view help) {
    parser_->app.add_option(std::string(name), values);
    ShowOption(name, form, help, Need::Optional);
}

void Options::Flag(bool& value, std::string_view name, std::string_view help) {
    parser_->app.add_flag(std::string(name), value);
    ShowOption(name, {}, help, Need::Optional);
}

void Options::Group(std::string_view word, std::string_view heading) {
    groups_.push_back({std::string(word), std::string(heading)});
}

void Options::StopAtFirstWord() {
    parser_->app.prefix_command();
    stopAtFirstWord_ = true;
}

bool Options::Parse(const std::vector<std::string>& arguments) {
    std::vector<std::string> reversed(arguments.rbegin(), arguments.rend());  // as the parser wants them
    try {
        parser_->app.parse(reversed);
    } catch (const CLI::CallForHelp&) {
        return false;
    } catch (const CLI::ParseError& error) {
        throw UsageError(error.what());
    }
    rest_ = parser_->app.remaining();
    // An unknown option in front of the first word is left over like the words.
    if (stopAtFirstWord_ && !rest_.empty() && rest_.front().starts_with('-')) {
        throw UsageError("There is no option " + rest_.front());
    }
    return true;
}

std::string Options::Usage() const {
    std::string usage = "usage: " + program_;
    std::size_t group = 0;
    for (const Entry& entry : entries_) {
        const bool inGroup = entry.group != 0;
        const bool begins = entry.group != group;
        group = entry.group;
        if (!inGroup) usage += " " + entry.usage;
        if (inGroup && begins && !groups_[group].word.empty()) usage += " " + groups_[group].word;
    }
    return usage;
}

std::string Options::Table() const {
    std::size_t width = 0;
    for (const Entry& entry : entries_) width = std::max(width, entry.form.size());
    std::string table;
    std::size_t group = 0;
    for (const Entry& entry : entries_) {
        if (entry.group != group) table += "\n" + groups_[entry.group].text + "\n";
        group = entry.group;
        table += "  " + entry.form + std::string(width - entry.form.size() + 2, ' ') + entry.help + "\n";
    }
    return table;
}

}  // namespace calyx::cli
