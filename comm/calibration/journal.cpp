#include "comm/calibration/journal.h"

#include <system_error>

#include "model/language/error.h"
#include "model/language/reason.h"
#include "model/language/text.h"

namespace calyx {

namespace {

constexpr std::string_view kHeading = "; Calibration under way: what the indicator held before";
constexpr int kScales = 32;

}  // namespace

std::optional<CalibrationRecord> CalibrationJournal::Find() const {
    std::string text;
    try {
        if (files_.Look(path_) != IFileStore::Found::File) return std::nullopt;
        text = files_.Read(path_);
    } catch (const std::system_error&) {
        return std::nullopt;
    }
    if (!text.starts_with(kHeading)) return std::nullopt;
    CalibrationRecord record;
    const auto lines = ReadLines(text);
    for (const KeyValue& line : lines) {
        if (line.key == "scale") record.scale = ReadInteger(line.value).value_or(LeadingInteger{}).value;
        if (line.key == "where") record.where = line.value;
        if (line.key == "version") record.version = line.value;
    }
    const bool scale = record.scale >= 1 && record.scale <= kScales;
    if (!scale || !CalibrationValues::Read(lines, record.scale, record.old)) return std::nullopt;
    return record;
}

void CalibrationJournal::Keep(const CalibrationRecord& record) {
    std::string text(kHeading);
    text += "\r\nscale=" + std::to_string(record.scale) + "\r\nwhere=" + record.where +
            "\r\nversion=" + record.version + "\r\n";
    for (const KeyValue& line : record.old.Lines(record.scale)) text += line.key + "=" + line.value + "\r\n";
    try {
        files_.Replace(path_, text);
    } catch (const std::system_error& error) {
        throw Error(code::kFileNotWritten, "Calyx.CCalibration.Begin",
                    texts_.Format(code::kFileNotWritten, {path_, Reason(error)}));
    }
}

void CalibrationJournal::Remove() {
    try {
        files_.Remove(path_);
    } catch (const std::system_error&) {
        return;  // it is offered again; restoring the same values twice does no harm
    }
}

}  // namespace calyx
