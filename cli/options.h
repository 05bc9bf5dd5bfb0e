#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace calyx::cli {

// What a command accepts, declared in the order in which its help shows it. Every value declared stays
// bound and is filled by Parse. An optional value that was not given stays empty.
class Options {
  public:
    // `program`: "calyx-cli text", as the usage line begins.
    explicit Options(std::string program);
    ~Options();

    // Words at their place. A name in capitals is what the usage line shows: "FILE", "KEY...".
    void Word(std::string& value, std::string_view name, std::string_view help);
    void Word(std::optional<std::string>& value, std::string_view name, std::string_view help);
    void Words(std::vector<std::string>& values, std::string_view name, std::string_view help, bool needed);

    // "--output OUT" and its like. `form` is what stands behind the name.
    enum class Need { Optional, Required };
    void Text(std::optional<std::string>& value, std::string_view name, std::string_view form,
              std::string_view help, Need need = Need::Optional);
    void Number(std::optional<int>& value, std::string_view name, std::string_view form,
                std::string_view help, int least, int most);
    // One value each time the option is given.
    void Each(std::vector<std::string>& values, std::string_view name, std::string_view form,
              std::string_view help);
    // All words up to the next option.
    void List(std::vector<std::string>& values, std::string_view name, std::string_view form,
              std::string_view help);
    void Flag(bool& value, std::string_view name, std::string_view help);

    // What is declared next belongs together: under a heading of its own in the help, one word in the
    // usage line.
    void Group(std::string_view word, std::string_view heading);

    // Everything from the first word on is left in Rest(), as if it were no option of this program.
    void StopAtFirstWord();
    const std::vector<std::string>& Rest() const { return rest_; }

    // False: help was asked for. Raises UsageError.
    bool Parse(const std::vector<std::string>& arguments);

    std::string Usage() const;  // "usage: calyx-cli text FILE [--section NAME]"
    std::string Table() const;  // a line for everything declared

  private:
    struct Entry {
        std::string form, usage, help;
        std::size_t group;
    };
    struct Heading {
        std::string word, text;
    };
    struct Parser;

    void Show(std::string form, std::string usage, std::string_view help);
    void ShowOption(std::string_view name, std::string_view form, std::string_view help, Need need);

    std::string program_;
    std::vector<Entry> entries_;
    std::vector<Heading> groups_;
    std::unique_ptr<Parser> parser_;
    bool stopAtFirstWord_ = false;
    std::vector<std::string> rest_;
};

}  // namespace calyx::cli
