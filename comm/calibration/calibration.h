#pragma once

#include <optional>
#include <string>

#include "comm/calibration/journal.h"
#include "comm/indicator_comm.h"
#include "model/document/indicator.h"

namespace calyx {

// Told of every status of the calibration: a number of the resource texts (18530 to 18547, 1294) and its
// words.
class ICalibrationEvents {
  public:
    virtual ~ICalibrationEvents() = default;
    virtual void WriteStatusMessage(int /*number*/, const std::string& /*text*/) {}
};

// The live calibration of one scale of a connected indicator, step by step, as wizard and command line share
// it. Begin reads the present calibration and keeps it on disk before the first command goes out; then come
// the steps in any order and as often as needed; Finish gives the new values to the document, Cancel puts the
// old ones back. The journal goes only when the indicator was found to hold the one or the other.
//
// Every operation tells its status and returns whether it succeeded; a command that is not acknowledged
// within ten seconds in one of six attempts has failed. A step that failed can be repeated. Errors: 20002
// from Begin.
class CCalibration {
  public:
    enum class State {
        Idle,     // nothing begun, or ended
        Ready,    // read, no command sent yet
        Changed,  // commands were sent
        Read,     // and the new calibration was read after the last of them
    };

    CCalibration(CIndicatorComm& link, const ModelContext& context, ICalibrationEvents& events,
                 const std::string& journalFile)
        : link_(link),
          context_(context),
          events_(events),
          journal_(*context.files, context.texts, journalFile) {}

    // Connects where needed, asks for configuration mode, reads what Old() then has. The scale: 1 to 32.
    bool GetCurrentCalibration(int scale);
    // The same, and keeps what was read. False too while another calibration that was cut off waits to be
    // put back: its old values must not be overwritten.
    bool Begin(int scale);

    bool SetTestWeight(const std::string& weight);  // without calibrating; Zero does it by itself
    bool Zero(const std::string& testWeight);       // empty: the indicator's test weight stays
    bool Span();
    bool Rezero();
    bool Linear(int point, const std::string& weight);  // 1 to 5; its count is then in New()
    // Reads what the indicator holds now.
    bool GetNewCalibration();

    // The document's scale takes the new values, read where that has not been done; the calibration ends.
    // Nothing: they could not be read, and it goes on.
    std::optional<CIndicator::Taken> Finish(CIndicator& document);
    // The same without a document.
    bool Finish();
    // Puts the old values back and reads whether they are there. False: not all are; the journal stays.
    bool Cancel();

    State At() const { return state_; }
    int SelectedScale() const { return record_.scale; }
    const CalibrationValues& Old() const { return record_.old; }
    const CalibrationValues& New() const { return new_; }

    // A calibration that was cut off, and putting its old values back: another indicator than the one that
    // they were read from is refused.
    std::optional<CalibrationRecord> Pending() const { return journal_.Find(); }
    bool RestorePending();
    void ForgetPending() { journal_.Remove(); }

  private:
    bool Status(int number, bool success = true);
    bool Acknowledged(const std::string& command);
    bool Failed(int number);
    bool Step(std::initializer_list<std::string> commands, int begun, int done, int failed);
    bool InSetupMode();
    std::optional<std::string> GetCalData(const std::string& command);
    bool ReadAll(CalibrationValues& values);
    bool RestoreOld();
    bool Connected();
    std::string Version();

    CIndicatorComm& link_;
    const ModelContext& context_;
    ICalibrationEvents& events_;
    CalibrationJournal journal_;
    CalibrationRecord record_;
    CalibrationValues new_;
    State state_ = State::Idle;
    SendResult last_ = SendResult::Accepted;  // of the last command
};

// Whether the wizard offers scales of a kind: those whose counts the indicator or its boxes measure (2
// analog, 5 Vexal, 7 analog input).
bool CanCalibrate(std::int32_t kind);
std::vector<int> ScalesToCalibrate(const CIndicator& document);

}  // namespace calyx
