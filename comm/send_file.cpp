#include "comm/send_file.h"

#include <algorithm>

#include "model/language/error.h"
#include "model/language/text.h"

namespace calyx {

std::size_t CSendFile::Report::Failed() const {
    return static_cast<std::size_t>(
        std::count_if(answers.begin(), answers.end(), [](const Answer& answer) { return !answer.good; }));
}

CSendFile::Report CSendFile::Run(std::string_view text, int timeoutMs, bool haltOnError) {
    std::vector<std::string> lines;
    ForEachLine(text, [&lines](std::string_view line) {
        if (!Trim(line).empty()) lines.emplace_back(line);
    });
    abort_ = false;
    Report report;
    report.total = lines.size();
    const LinkObserver observer(link_, *this);
    for (const std::string& line : lines) {
        if (Stopped()) {
            report.end = Report::End::Aborted;
            break;
        }
        events_.Line(line, report.answers.size() + 1, report.total);
        Answer answer = SendLine(line, timeoutMs);
        if (Stopped() && !answer.good) {
            report.end = Report::End::Aborted;
            break;
        }
        events_.Answered(answer);
        const bool good = answer.good;
        report.answers.push_back(std::move(answer));
        // A minute for each of the lines that remain would help nobody.
        if (lost_ || (!good && report.answers.back().text.empty() && !link_.StillAnswers())) {
            report.end = Report::End::Lost;
            break;
        }
        if (!good && haltOnError) {
            report.end = Report::End::Halted;
            break;
        }
    }
    return report;
}

CSendFile::Answer CSendFile::SendLine(const std::string& line, int timeoutMs) {
    Answer answer{.line = line, .text = {}};
    lost_ = false;
    if (line.find('=') != std::string::npos) {
        const SendResult result = link_.Send(line, timeoutMs).result;
        answer.good = result == SendResult::Accepted;
        if (answer.good) answer.text = "OK";
        if (result == SendResult::Refused) answer.text = "??";
        lost_ = result == SendResult::Lost;
        return answer;
    }
    try {
        std::string reply = link_.GetAnswer(line).value_or(std::string());
        std::erase(reply, '\n');
        while (reply.ends_with('\r')) reply.pop_back();
        std::replace(reply.begin(), reply.end(), '\r', '\n');
        answer.text = std::move(reply);
    } catch (const Error&) {
        lost_ = !link_.Connected();
        if (!lost_) throw;
    }
    answer.good = !answer.text.empty() && answer.text != "??";
    return answer;
}

}  // namespace calyx
