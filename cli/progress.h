#pragma once

#include <cstddef>
#include <ostream>
#include <string>

#include "cli/console.h"

namespace calyx::cli {

// What a long operation is doing, on stderr. On a terminal it is one line that changes, with a bar where
// the end is known; elsewhere only each new step is a line, so that a log stays short.
class Progress {
  public:
    explicit Progress(Console& console) : err_(console.err), bar_(console.errIsTerminal) {}
    ~Progress() { Clear(); }
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    void Step(const std::string& text);
    void Count(std::size_t done, std::size_t all);  // all 0: not known
    // What changes too often for a log.
    void Live(const std::string& text) {
        if (bar_) Draw(text);
    }
    // Makes room for a message of another kind.
    void Clear();
    // How it ended; stays to be read.
    void End(const std::string& text);

  private:
    void Draw(const std::string& line);

    std::ostream& err_;
    bool bar_;
    std::string step_;
    std::size_t drawn_ = 0;  // characters on the terminal's line
};

}  // namespace calyx::cli
