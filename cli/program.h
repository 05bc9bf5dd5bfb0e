#pragma once

#include <functional>
#include <ostream>
#include <string>

#include "app/context.h"
#include "cli/console.h"
#include "cli/json.h"

namespace calyx::cli {

// What a running command works with: the program's context and its ends.
class Program {
  public:
    Program(Console& console, AppContext& app, bool json) : console_(console), app_(app), json_(json) {}

    AppContext& App() { return app_; }
    ModelContext& Model() { return app_.model; }
    Console& Ends() { return console_; }

    std::ostream& Out() { return console_.out; }
    // A line on stderr; control characters in it are shown as such.
    void Say(const std::string& message);

    // Prints a listing: as JSON when asked for, else as the text that the function writes.
    void List(const std::function<Json()>& json, const std::function<void(std::ostream&)>& text);
    bool WantsJson() const { return json_; }

    bool Cancelled() const { return app_.cancel; }
    void StopIfCancelled() const;  // raises Interrupted

  private:
    Console& console_;
    AppContext& app_;
    bool json_;
};

// Text of a file or an indicator as a terminal may be shown it: control characters as "\x07". Longer ones
// than `most` characters are cut and end with "...".
std::string Printable(std::string_view text, std::size_t most = std::string_view::npos);
// The same in quotes, as a value is shown in a sentence.
std::string Quoted(std::string_view value, std::size_t most = std::string_view::npos);
// "1 line", "3 lines".
std::string Counted(std::size_t count, std::string_view one, std::string_view many);

}  // namespace calyx::cli
