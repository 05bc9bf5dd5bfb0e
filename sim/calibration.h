#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "sim/store.h"

namespace calyx::sim {

// The calibration commands of the simulated indicator: "SC.WZERO#n", "SC.WSPAN#n", "SC.REZERO#n" and
// "SC.WLIN.C1#n" to "C5". The load cells behind the scales (1 to 32) are imagined: each has its own zero and
// slope, bends a little and drifts a count or two from one reading to the next. What lies on the scale is
// what the command needs: nothing for zero, the test weight SC.WVAL for span, the point's weight SC.WLIN.Vk
// for a linear point.
class LoadCells {
  public:
    // The answer after the counts have been stored; "??" for a scale that is none and for a weight that is
    // missing or not above 0. Nothing: no calibration command.
    std::optional<std::string> Answer(Store& store, std::string_view line);

    // What a calibration value is before the first calibration: "0". Nothing: another key.
    static std::optional<std::string> Initial(std::string_view key);

  private:
    long Read(int scale, double weight);
    bool Zero(Store& store, int scale);
    bool Span(Store& store, int scale);
    bool Rezero(Store& store, int scale);
    bool Linear(Store& store, int scale, int point);

    int readings_ = 0;
};

}  // namespace calyx::sim
