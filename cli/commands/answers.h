#pragma once

#include <string>

#include "cli/program.h"
#include "comm/send_file.h"
#include "model/language/text.h"

namespace calyx::cli {

// What the indicator said to a line, in words where it said nothing.
inline std::string Words(const CSendFile::Answer& answer) {
    return answer.text.empty() ? "no answer" : answer.text;
}

// The same as lines that a terminal may be shown, each ended by LF.
inline std::string AnswerLines(const CSendFile::Answer& answer) {
    std::string shown;
    ForEachLine(Words(answer), [&](std::string_view line) { shown += Printable(line) + "\n"; });
    return shown;
}

}  // namespace calyx::cli
