#pragma once

#include <atomic>
#include <cstddef>
#include <functional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "comm/download_plan.h"
#include "comm/indicator_comm.h"

namespace calyx {

// What became of a line. The characters stand in the journal of a run and never change.
enum class LineFate : char {
    Waiting = '.',     // not sent yet, or its answer was lost with the link
    Accepted = 'A',    // "OK"
    Refused = 'R',     // "??"
    Unanswered = 'N',  // every attempt ran out its time, and yet the indicator was there
    HeldBack = 'H',    // not sent: of a stream whose port was not accepted whole
};

// A line that the indicator did not accept, and why. Of a stream that was held back, its first line.
struct FailedLine {
    std::string line;
    std::string reason;
};

struct DownloadReport {
    // Lost: the link is gone, or nothing answers any more; what is left can be sent later.
    enum class End { Complete, Failed, Aborted, NotInSetupMode, Lost };

    End end = End::Failed;
    std::string status;  // the final status, in words
    std::string reason;  // why it ended early, where the failed lines do not say it
    int total = 0;       // lines that were to be sent
    int accepted = 0;
    std::vector<FailedLine> failed;
    std::vector<LineFate> fates;  // of all lines, in sending order
};

// What a download shows while it runs.
class IDownloadEvents {
  public:
    virtual ~IDownloadEvents() = default;
    virtual void Status(const std::string& /*text*/) {}
    // Before each line; `number` counts from 1.
    virtual void Line(const std::string& /*line*/, int /*number*/, int /*total*/) {}
    // After each line, in the same order.
    virtual void Done(LineFate /*fate*/) {}
    // After each failed line: "Errors: 3".
    virtual void Errors(const std::string& /*text*/) {}
    // A message that a window shows in a box; the title may be empty.
    virtual void Notice(const std::string& /*title*/, const std::string& /*text*/) {}
    // The same for what ends the run; the report has the text too.
    virtual void Failure(const std::string& title, const std::string& text) { Notice(title, text); }
};

// Sends a document to a connected indicator, step by step. One run at a time.
//
// A refused line is counted and the download goes on, unless it is to halt on errors; the stream of a serial
// port is held back then, and counts as one failed line. It ends with the
// first step that fails, when the indicator is not in setup mode, on Abort or the program's cancel
// flag, and at once when the link is lost. An aborted line is no error of the indicator's. After a line that
// nobody answered the indicator is asked whether it is still there; if not, the link counts as lost, so that
// a minute is never waited for each of the lines that remain.
class CDownload : private IDownload, private ILineSender, private ILinkEvents {
  public:
    CDownload(CIndicatorComm& link, const CancelFlag& cancel, IDownloadEvents& events)
        : link_(link), cancel_(cancel), events_(events) {}

    // Sends what the options choose, gated for `target`. Raises 10006 for a document without sections
    // and what PlanDownload raises, before anything is sent.
    DownloadReport Run(const CIndicator& document, const DownloadOptions& options, const Target& target);
    // Sends steps that were planned before. `done` are the fates of an earlier run of the same steps: lines
    // that have one are not sent again, and the indicator must be in setup mode before the first that has
    // none.
    DownloadReport RunSteps(const std::vector<DownloadStep>& steps, const DownloadOptions& options,
                            const ResourceTexts& texts, const std::vector<LineFate>& done = {});
    // Ends the run, the line in flight included. For event handlers and other threads.
    void Abort() { abort_ = true; }

    bool ErrorAction(const std::string& failedLine) override;

  private:
    bool SendLine(std::string_view line) override;
    void CancelSendData(bool& cancel) override { cancel |= Stopped(); }
    void CancelGetData(bool& cancel) override { cancel |= Stopped(); }

    bool Stopped() const { return abort_ || cancel_; }
    bool RunStep(const DownloadStep& step);
    bool IsDone(const DownloadStep& step) const;
    bool InSetupMode();
    void SeeWhetherLost();
    bool SendStepLines(const DownloadStep& step);
    void NoteFailure(std::string_view line);
    bool HoldsBack(std::string_view line);
    void Keep(LineFate fate);
    std::string Reason() const;
    void Fail(const std::string& title, std::string reason);
    std::string Counts(int text) const;
    std::string FinalStatus() const;
    void Finish(bool success);

    CIndicatorComm& link_;
    const CancelFlag& cancel_;
    IDownloadEvents& events_;
    std::atomic<bool> abort_{false};

    // Of the present run.
    const ResourceTexts* texts_ = nullptr;
    const DownloadOptions* options_ = nullptr;
    const DownloadStep* step_ = nullptr;
    DownloadReport report_;
    SendResult last_ = SendResult::Accepted;
    std::size_t number_ = 0;                      // of the line in the run
    std::size_t stepNumber_ = 0;                  // of the line in its step
    std::set<std::string, std::less<>> unwhole_;  // of the step: ports with a line not accepted, "#3"
    std::set<std::string, std::less<>> told_;     // those of them whose stream was counted
    bool resumed_ = false;                        // no line of this run has gone yet, but of an earlier one
};

// Lines of the steps that are sent; blank ones are not.
std::size_t CountLines(const std::vector<DownloadStep>& steps);
// What is told of more widgets than the indicator holds: title and text of the notice.
std::string TooManyWidgetsTitle(int count);
std::string TooManyWidgetsText();
// "Errors: 3".
std::string ErrorsText(std::size_t count);
// Asked after a run with failed lines.
std::string ViewErrorsQuestion(std::size_t count);

}  // namespace calyx
