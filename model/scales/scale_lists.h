#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "model/language/context.h"

namespace calyx {

// The value lists of the scales, from the catalogue. One of these serves all scales; a list that the
// catalogue lacks raises 20005 on creation.
class CScaleLists {
  public:
    explicit CScaleLists(const ModelContext& context);

    const CTextList& ZeroTrackBands() const { return *lists_[0]; }  // offered; any number is taken
    const CTextList& ZeroRanges() const { return *lists_[1]; }      // offered
    const CTextList& MotionBands() const { return *lists_[2]; }     // offered
    const CTextList& Overloads() const { return *lists_[3]; }
    const CTextList& DigitalFilters() const { return *lists_[4]; }
    const CTextList& DFSensitivities() const { return *lists_[5]; }
    const CTextList& DFThresholds() const { return *lists_[6]; }
    const CTextList& SampleRates() const { return *lists_[7]; }
    const CTextList& TareFunctions() const { return *lists_[8]; }
    const CTextList& DecimalPoints() const { return *lists_[9]; }
    const CTextList& DisplayDivisions() const { return *lists_[10]; }
    const CTextList& Units() const { return *lists_[11]; }
    const CTextList& RocUnits() const { return *lists_[12]; }
    const CTextList& PowerUpModes() const { return *lists_[13]; }
    const CTextList& AnalogInputRanges() const { return *lists_[14]; }
    const CTextList& AnalogInputSampleRates() const { return *lists_[15]; }
    const CTextList& ThermocoupleTypes() const { return *lists_[16]; }
    const CTextList& ThermocoupleDecimalPoints() const { return *lists_[17]; }
    const CTextList& ThermocoupleUnits() const { return *lists_[18]; }
    const CTextList& PeakHolds() const { return *lists_[19]; }
    const CTextList& SplitValues() const { return *lists_[20]; }
    // The kinds with their names; no words of a line.
    const CTextList& Kinds() const { return *lists_[21]; }

  private:
    std::array<const CTextList*, 22> lists_;
};

}  // namespace calyx
