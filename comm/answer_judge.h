#pragma once

#include <string>
#include <string_view>

#include "comm/framing.h"

namespace calyx {

enum class Verdict { None, Accepted, Refused };

// Listens for the answer to one command: "OK" CR accepts it, "??" CR refuses it. Bytes may come in any
// pieces and with noise in front of the answer. A line that ends with the command itself is an echo and no
// answer, so that a value which ends in "OK" accepts nothing. In addressed mode only frames for the own
// address are heard.
class AnswerJudge {
  public:
    AnswerJudge(std::string_view command, BusAddress address)
        : command_(WithoutLineEnd(command)), address_(address) {}

    // Judges what has arrived; "OK" wins over "??".
    Verdict Take(std::string_view bytes);

  private:
    Verdict JudgeLine(std::string_view line) const;
    Verdict JudgeLines();
    Verdict JudgeFrames();

    std::string command_;
    BusAddress address_;
    std::string pending_;  // an unfinished line or frame
};

}  // namespace calyx
