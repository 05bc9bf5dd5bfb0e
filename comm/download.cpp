#include "comm/download.h"

#include <algorithm>
#include <utility>

#include "comm/link_texts.h"
#include "model/language/error.h"
#include "model/language/text.h"

namespace calyx {

namespace {

constexpr const char* kTooManyWidgets =
    "The current Merrin supports 128 total widgets. The first 128 configured widgets will be sent to the "
    "indicator.";

std::size_t CountLines(const DownloadStep& step) {
    std::size_t count = 0;
    ForEachLine(step.lines, [&count](std::string_view line) { count += Trim(line).empty() ? 0 : 1; });
    return count;
}

// "#3" of "STR.POS#3=+"
std::string_view PortIn(std::string_view line) {
    line = line.substr(0, line.find('='));
    return line.substr(std::min(line.find('#'), line.size()));
}

bool IsOfStream(std::string_view line) {
    return line.starts_with("STR.") || line.starts_with("EDP.SFMT#");
}

}  // namespace

std::size_t CountLines(const std::vector<DownloadStep>& steps) {
    std::size_t count = 0;
    for (const DownloadStep& step : steps) count += CountLines(step);
    return count;
}

std::string TooManyWidgetsTitle(int count) {
    return "Widget Count #" + std::to_string(count);
}

std::string TooManyWidgetsText() {
    return kTooManyWidgets;
}

std::string ErrorsText(std::size_t count) {
    return "Errors: " + std::to_string(count);
}

std::string ViewErrorsQuestion(std::size_t count) {
    return "There were " + std::to_string(count) +
           " error(s) encountered during the download. Would you like to view these errors?";
}

DownloadReport CDownload::Run(const CIndicator& document, const DownloadOptions& options,
                              const Target& target) {
    const ResourceTexts& texts = document.Context().texts;
    if (!document.IsInitialised())
        throw Error(code::kNotInitialised, "Calyx.CDownload.Run", texts.Text(code::kNotInitialised));
    return RunSteps(PlanDownload(document, options, target), options, texts);
}

DownloadReport CDownload::RunSteps(const std::vector<DownloadStep>& steps, const DownloadOptions& options,
                                   const ResourceTexts& texts, const std::vector<LineFate>& done) {
    texts_ = &texts;
    options_ = &options;
    abort_ = false;
    report_ = {};
    report_.fates = done;
    report_.fates.resize(CountLines(steps), LineFate::Waiting);
    report_.total = static_cast<int>(report_.fates.size());
    report_.accepted =
        static_cast<int>(std::count(report_.fates.begin(), report_.fates.end(), LineFate::Accepted));
    last_ = SendResult::Accepted;
    number_ = 0;
    resumed_ = !done.empty();

    const LinkObserver observer(link_, *this);
    bool success = true;
    for (const DownloadStep& step : steps) {
        success = RunStep(step);
        if (!success) break;
    }
    Finish(success);
    return std::move(report_);
}

bool CDownload::RunStep(const DownloadStep& step) {
    if (Stopped()) return false;
    try {
        const bool nothingLeft = resumed_ && IsDone(step);
        if (!nothingLeft && (step.probe || std::exchange(resumed_, false)) && !InSetupMode()) return false;
        if (!nothingLeft) resumed_ = false;
        events_.Status(step.status);
        if (step.widgetsTooMany > 0) {
            events_.Notice(TooManyWidgetsTitle(step.widgetsTooMany), TooManyWidgetsText());
        }
        return SendStepLines(step);
    } catch (const Error& error) {
        Fail(texts_->Text(link_text::kSectionFailedTitle),
             texts_->Text(link_text::kSectionFailed) + "\r\n\r\n" + error.Description());
        return false;
    }
}

bool CDownload::IsDone(const DownloadStep& step) const {
    const auto first = report_.fates.begin() + static_cast<std::ptrdiff_t>(number_);
    const auto end = first + static_cast<std::ptrdiff_t>(CountLines(step));
    return std::find(first, end, LineFate::Waiting) == end;
}

bool CDownload::InSetupMode() {
    last_ = link_.AskForSetupMode();
    if (last_ == SendResult::NoAnswer) SeeWhetherLost();
    if (last_ == SendResult::Refused || last_ == SendResult::NoAnswer) {
        report_.end = DownloadReport::End::NotInSetupMode;
        Fail({}, texts_->Text(link_text::kNotInSetupMode));
    }
    return last_ == SendResult::Accepted;
}

void CDownload::SeeWhetherLost() {
    if (!link_.StillAnswers()) last_ = Stopped() ? SendResult::Cancelled : SendResult::Lost;
}

bool CDownload::SendStepLines(const DownloadStep& step) {
    step_ = &step;
    stepNumber_ = 0;
    unwhole_.clear();
    told_.clear();
    return SendLines(step.lines, *this, *this) && !Stopped();
}

bool CDownload::SendLine(std::string_view line) {
    if (Stopped()) return false;
    ++number_;
    ++stepNumber_;
    const LineFate fate = report_.fates[number_ - 1];
    if (fate == LineFate::Refused || fate == LineFate::Unanswered) NoteFailure(line);
    if (fate != LineFate::Waiting || HoldsBack(line)) return true;
    events_.Line(std::string(line), static_cast<int>(number_), report_.total);
    if (Stopped()) return false;  // told while the line waited to go
    last_ = link_.Send(line, options_->timeoutMs).result;
    if (last_ == SendResult::NoAnswer) SeeWhetherLost();
    if (last_ == SendResult::Accepted) {
        ++report_.accepted;
        Keep(LineFate::Accepted);
    }
    return last_ == SendResult::Accepted;
}

void CDownload::NoteFailure(std::string_view line) {
    if (!IsOfStream(line)) unwhole_.emplace(PortIn(line));
}

// A stream that the indicator would send over a port that is set otherwise helps nobody.
bool CDownload::HoldsBack(std::string_view line) {
    const bool held = step_->needs == DownloadStep::Needs::WholePorts && IsOfStream(line) &&
                      unwhole_.contains(PortIn(line));
    if (!held) return false;
    if (told_.emplace(PortIn(line)).second) {
        const std::string port(PortIn(line).substr(1));
        report_.failed.push_back({std::string(line), texts_->Format(link_text::kStreamHeldBack, {port})});
        events_.Errors(ErrorsText(report_.failed.size()));
    }
    Keep(LineFate::HeldBack);
    return true;
}

void CDownload::Keep(LineFate fate) {
    report_.fates[number_ - 1] = fate;
    events_.Done(fate);
}

bool CDownload::ErrorAction(const std::string& failedLine) {
    if (Stopped() || last_ == SendResult::Cancelled) return true;
    // A line whose answer went with the link has not failed: it is still to be sent.
    if (last_ == SendResult::Lost) return true;
    Keep(last_ == SendResult::Refused ? LineFate::Refused : LineFate::Unanswered);
    NoteFailure(failedLine);
    report_.failed.push_back({failedLine, Reason()});
    events_.Errors(ErrorsText(report_.failed.size()));
    using Needs = DownloadStep::Needs;
    const bool needed =
        step_->needs == Needs::EveryLine || (step_->needs == Needs::FirstLine && stepNumber_ == 1);
    return needed || options_->haltOnError;
}

std::string CDownload::Reason() const {
    const bool refused = last_ == SendResult::Refused;
    return texts_->Text(refused ? link_text::kLineRefused : link_text::kLineUnanswered);
}

void CDownload::Finish(bool success) {
    using End = DownloadReport::End;
    if (Stopped()) {
        report_.end = End::Aborted;
    } else if (success) {
        report_.end = End::Complete;
    } else if (last_ == SendResult::Lost) {
        report_.end = End::Lost;
        Fail(texts_->Text(link_text::kSectionFailedTitle), Counts(link_text::kLostAtLine));
    }
    report_.status = FinalStatus();
    events_.Status(report_.status);
}

void CDownload::Fail(const std::string& title, std::string reason) {
    report_.reason = std::move(reason);
    events_.Failure(title, report_.reason);
}

std::string CDownload::Counts(int text) const {
    return texts_->Format(text, {std::to_string(report_.accepted), std::to_string(report_.total)});
}

// Only what has arrived makes the indicator's configuration a mixture.
std::string CDownload::FinalStatus() const {
    using End = DownloadReport::End;
    if (report_.end == End::Complete) return texts_->Text(link_text::kComplete);
    const std::string status =
        texts_->Text(report_.end == End::Aborted ? link_text::kAborted : link_text::kFailed);
    return report_.accepted == 0 ? status : status + " " + Counts(link_text::kPartlySent);
}

}  // namespace calyx
