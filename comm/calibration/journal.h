#pragma once

#include <optional>
#include <string>

#include "comm/calibration/commands.h"
#include "model/language/file_store.h"
#include "model/language/resource_texts.h"

namespace calyx {

// What an indicator held before a calibration that has not ended yet.
struct CalibrationRecord {
    int scale = 0;
    std::string where;    // the way to the indicator, as the link names it
    std::string version;  // what it answered to VERSION, so that another one is not given these values
    CalibrationValues old;
};

// Keeps the old values on disk from before the first command until they are restored or the calibration is
// finished. What is found at the start of the program is a calibration that a crash cut off.
class CalibrationJournal {
  public:
    CalibrationJournal(IFileStore& files, const ResourceTexts& texts, std::string path)
        : files_(files), texts_(texts), path_(std::move(path)) {}

    std::optional<CalibrationRecord> Find() const;
    void Keep(const CalibrationRecord& record);  // 20002
    void Remove();

  private:
    IFileStore& files_;
    const ResourceTexts& texts_;
    std::string path_;
};

}  // namespace calyx
