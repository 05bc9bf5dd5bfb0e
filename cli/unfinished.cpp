#include "cli/unfinished.h"

#include "cli/exit.h"

namespace calyx::cli {

std::string SendJournalFile(Program& program) {
    return program.App().folders.userData + "send.journal";
}

std::string CalibrationJournalFile(Program& program) {
    return program.App().folders.userData + "calibration.journal";
}

std::optional<SendRecord> PendingSend(Program& program) {
    return SendJournal(*program.Model().files, program.Model().texts, SendJournalFile(program)).Find();
}

void ForgetSend(Program& program) {
    SendJournal(*program.Model().files, program.Model().texts, SendJournalFile(program)).Remove();
}

std::optional<CalibrationRecord> PendingCalibration(Program& program) {
    return CalibrationJournal(*program.Model().files, program.Model().texts, CalibrationJournalFile(program))
        .Find();
}

void ForgetCalibration(Program& program) {
    CalibrationJournal(*program.Model().files, program.Model().texts, CalibrationJournalFile(program))
        .Remove();
}

void TellUnfinished(Program& program, Own own) {
    const auto download = own == Own::Download ? std::nullopt : PendingSend(program);
    if (download) {
        program.Say("a download of " + download->document + " to " + download->where + " was broken off, " +
                    Counted(download->Left(), "line is", "lines are") + " left; \"resume\" goes on" +
                    (download->backup.empty() ? ", " : ", \"resume --restore\" puts back what was there, ") +
                    "\"resume --forget\" drops it");
    }
    const auto calibration = own == Own::Calibration ? std::nullopt : PendingCalibration(program);
    if (calibration) {
        program.Say("a calibration of scale " + std::to_string(calibration->scale) + " at " +
                    calibration->where +
                    " was cut off; \"calibrate --restore\" puts the old values back, \"calibrate --forget\" "
                    "drops them");
    }
}

void NeedSameWay(const std::string& begun, const std::string& now, bool force) {
    if (begun == now || force) return;
    throw UsageError("it was begun at " + begun + ", and this is " + now +
                     "; give --force when it is the same indicator");
}

}  // namespace calyx::cli
