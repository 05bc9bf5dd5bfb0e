#pragma once

#include <QString>
#include <functional>

#include "model/scales/scales.h"

namespace calyx::ui {

// What the display tells of a scale while nothing is weighed: a sample with the decimals and the unit of
// its configuration.
struct ScaleDisplay {
    QString weight, units, name;
};
// By the scale's number, which may be one that there is not.
using ScaleDisplays = std::function<ScaleDisplay(int scale)>;

// The scales outlive the answer.
ScaleDisplays DisplaysOf(const CScales& scales);

}  // namespace calyx::ui
