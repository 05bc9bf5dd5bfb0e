#include "comm/download.h"

#include "comm/link_texts.h"
#include "model/language/error.h"
#include "model/language/text.h"

namespace calyx {

namespace {

constexpr const char* kTooManyWidgets =
    "The current Merrin supports 128 total widgets. The first 128 configured widgets will be sent to the "
    "indicator.";

int CountLines(const std::vector<DownloadStep>& steps) {
    int count = 0;
    for (const DownloadStep& step : steps) {
        ForEachLine(step.lines, [&count](std::string_view line) { count += Trim(line).empty() ? 0 : 1; });
    }
    return count;
}

}  // namespace

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
    texts_ = &document.Context().texts;
    options_ = &options;
    abort_ = false;
    report_ = {};
    last_ = SendResult::Accepted;
    number_ = 0;
    if (!document.IsInitialised()) {
        throw Error(code::kNotInitialised, "Calyx.CDownload.Run", texts_->Text(code::kNotInitialised));
    }
    const std::vector<DownloadStep> steps = PlanDownload(document, options, target);
    report_.total = CountLines(steps);

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
        if (step.probe && !InSetupMode()) return false;
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

bool CDownload::InSetupMode() {
    last_ = link_.AskForSetupMode();
    if (last_ == SendResult::Refused || last_ == SendResult::NoAnswer) {
        report_.end = DownloadReport::End::NotInSetupMode;
        Fail({}, texts_->Text(link_text::kNotInSetupMode));
    }
    return last_ == SendResult::Accepted;
}

bool CDownload::SendStepLines(const DownloadStep& step) {
    step_ = &step;
    stepNumber_ = 0;
    return SendLines(step.lines, *this, *this) && !Stopped();
}

bool CDownload::SendLine(std::string_view line) {
    if (Stopped()) return false;
    ++number_;
    ++stepNumber_;
    events_.Line(std::string(line), number_, report_.total);
    last_ = link_.Send(line, options_->timeoutMs).result;
    if (last_ == SendResult::Accepted) ++report_.accepted;
    return last_ == SendResult::Accepted;
}

bool CDownload::ErrorAction(const std::string& failedLine) {
    if (Stopped() || last_ == SendResult::Cancelled) return true;
    report_.failed.push_back({failedLine, Reason()});
    events_.Errors(ErrorsText(report_.failed.size()));
    using Needs = DownloadStep::Needs;
    const bool needed =
        step_->needs == Needs::EveryLine || (step_->needs == Needs::FirstLine && stepNumber_ == 1);
    return needed || options_->haltOnError || last_ == SendResult::Lost;
}

std::string CDownload::Reason() const {
    if (last_ == SendResult::Refused) return texts_->Text(link_text::kLineRefused);
    return texts_->Text(last_ == SendResult::Lost ? link_text::kLineLost : link_text::kLineUnanswered);
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
