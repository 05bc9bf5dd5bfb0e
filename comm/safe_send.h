#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "comm/send_journal.h"
#include "comm/send_plan.h"
#include "comm/upload.h"

namespace calyx {

// How many lines went which way.
struct SendCounts {
    std::size_t sent = 0;  // accepted by the indicator
    std::size_t refused = 0;
    std::size_t unanswered = 0;
    std::size_t unchanged = 0;    // held already, so not sent
    std::size_t notKnown = 0;     // to the indicator's firmware, so not sent
    std::size_t notReadBack = 0;  // accepted, but afterwards not there as sent, or not read

    // "Sent: 12. Refused: 1. ..."
    std::string InWords(const ResourceTexts& texts) const;
};

struct SafeSendReport {
    // A line that was to be sent. Green: accepted, and the indicator was found to hold it.
    struct Line {
        std::string line{};
        LineFate fate = LineFate::Waiting;
        bool readable = true;  // a parameter; commands and programs cannot be read back
        bool green = false;
        std::optional<std::string> held{};  // what was read back
    };

    DownloadReport download;
    bool readBack = false;  // the indicator was read afterwards
    bool restores = false;  // the run put back what was there before
    std::string trouble;    // why it was not, or why the run ended early
    std::vector<Line> lines;
    std::vector<std::string> cannotGoBack;  // after a restore: keys that the indicator did not have before
    SendCounts counts;

    bool Paused() const { return download.end == DownloadReport::End::Lost; }
    // Every line was accepted and, where that is possible, read back as sent.
    bool Success() const;
    std::string InWords(const ResourceTexts& texts) const;  // how it ended and the counts
};

// The safe way to send: what the indicator holds is kept in a dated file first, the differences are looked
// at, sent, and read back; only then it is a success. What was there can be put back. A link that is lost
// pauses the run: the journal keeps the position, and Resume goes on once the link is connected again, also
// in another run of the program.
//
// Order of use: Prepare, Preview, Send, then perhaps Restore; or Pending and Resume, then perhaps Restore.
// Everything outlives it. Errors are those of the link (12801), of files (20001, 20002) and of PlanDownload.
class CSafeSend {
  public:
    struct Places {
        std::string backupFolder;  // ends with the separator; exists
        std::string journal;       // file of the run under way
        // Up to so many lines are read back one by one, more with the whole configuration.
        std::size_t askUpTo = 64;
    };
    CSafeSend(CIndicatorComm& link, const ModelContext& context, const CancelFlag& cancel,
              IDownloadEvents& download, IUploadEvents& upload, Places places);

    // Reads the indicator and keeps the dump as "indicator STAMP.mrn" in the backup folder. `stamp` is date
    // and time as a file's name may have it: "2026-11-21 165900". Nothing: Cancel; 12801: it was not read.
    const Held* Prepare(std::string_view stamp);
    const std::string& Backup() const { return backup_; }
    // What a download would change. Only after Prepare.
    SendPlan Preview(const CIndicator& document, const DownloadOptions& options) const;
    // Sends what is ticked and reads back.
    SafeSendReport Send(const SendPlan& plan, const DownloadOptions& options,
                        const std::string& documentName);

    // A run that was broken off, by a loss or by the program's cancel flag.
    std::optional<SendRecord> Pending() const { return journal_.Find(); }
    SafeSendReport Resume();
    void Forget() { journal_.Remove(); }

    // Puts back what was there before the run of this object: the old text of every line that went out.
    // After Resume that is read from the backup of the run. Nothing to put back: an empty report. 20001:
    // there is no backup.
    SafeSendReport Restore();
    // The same for a run that was broken off, instead of Resume.
    SafeSendReport RestorePending();

    // Ends what is under way. For event handlers and other threads.
    void Abort();

  private:
    DownloadReport RunSteps(const SendRecord& record);
    SafeSendReport Work(SendRecord record);
    void ReadBack(SafeSendReport& report, const SendRecord& record);
    std::vector<DownloadStep> StepsBack(std::vector<std::string>& cannotGoBack) const;
    std::optional<Held> ReadIndicator();
    std::optional<Held> ReadAgain(const SendRecord& record);
    std::optional<Held> Ask(const std::vector<std::string>& keys);

    CIndicatorComm& link_;
    const ModelContext& context_;
    const CancelFlag& cancel_;
    IDownloadEvents& download_;
    IUploadEvents& upload_;
    Places places_;
    SendJournal journal_;
    std::unique_ptr<Held> before_;
    std::string backup_;
    std::optional<SendRecord> last_;  // the run that Restore takes back
    CDownload* running_ = nullptr;
};

}  // namespace calyx
