#pragma once

#include <optional>
#include <string>

#include "cli/program.h"
#include "comm/calibration/journal.h"
#include "comm/send_journal.h"

namespace calyx::cli {

// What an earlier call of the program left under way at an indicator: a download that was broken off, a
// calibration that was cut off. Their journals are in the user's folder, where the desktop program finds them
// too.
std::string SendJournalFile(Program& program);
std::string CalibrationJournalFile(Program& program);

std::optional<SendRecord> PendingSend(Program& program);
void ForgetSend(Program& program);
std::optional<CalibrationRecord> PendingCalibration(Program& program);
void ForgetCalibration(Program& program);

// What a command goes on with by itself, so that it needs no word about it.
enum class Own { Nothing, Download, Calibration };

// Says what is unfinished and which command goes on with it.
void TellUnfinished(Program& program, Own own);

// Refuses to go on by another way than the one that was begun with: another indicator may be at its end.
// Raises UsageError.
void NeedSameWay(const std::string& begun, const std::string& now, bool force);

}  // namespace calyx::cli
