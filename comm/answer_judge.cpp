#include "comm/answer_judge.h"

#include <algorithm>

namespace calyx {

namespace {

// The most that is kept of a line without end, in bytes; a wire that only makes noise costs no more.
constexpr std::size_t kLongestLine = 64'000;

Verdict Better(Verdict a, Verdict b) {
    if (a == Verdict::Accepted || b == Verdict::Accepted) return Verdict::Accepted;
    return a == Verdict::Refused ? a : b;
}

}  // namespace

Verdict AnswerJudge::Take(std::string_view bytes) {
    pending_ += bytes;
    const Verdict verdict = address_ ? JudgeFrames() : JudgeLines();
    if (pending_.size() > kLongestLine) pending_.erase(0, pending_.size() - kLongestLine);
    return verdict;
}

Verdict AnswerJudge::JudgeLine(std::string_view line) const {
    const bool canEcho = command_.size() > 1;  // a lone CR, or "K", is the end of many a line
    if (canEcho && line.ends_with(command_)) return Verdict::None;
    if (line.ends_with("OK")) return Verdict::Accepted;
    return line.ends_with("??") ? Verdict::Refused : Verdict::None;
}

Verdict AnswerJudge::JudgeLines() {
    Verdict verdict = Verdict::None;
    std::string_view rest = pending_;
    for (auto end = rest.find(kCr); end != std::string_view::npos; end = rest.find(kCr)) {
        verdict = Better(verdict, JudgeLine(rest.substr(0, end)));
        rest.remove_prefix(end + 1);
    }
    pending_.erase(0, pending_.size() - rest.size());
    return verdict;
}

Verdict AnswerJudge::JudgeFrames() {
    Verdict verdict = Verdict::None;
    std::string_view rest = pending_;
    // Some wires bring back what was sent, which is no frame of a reply: it has no ETX.
    const std::string echo = WrapString(command_, *address_);
    while (rest.starts_with(echo)) rest.remove_prefix(echo.size());
    while (const auto frame = FirstFrame(rest)) {
        if (frame->address == *address_) verdict = Better(verdict, JudgeLine(WithoutLineEnd(frame->text)));
        rest.remove_prefix(frame->end);
    }
    pending_.erase(0, pending_.size() - rest.size());
    return verdict;
}

}  // namespace calyx
