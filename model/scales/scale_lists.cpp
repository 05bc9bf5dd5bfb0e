#include "model/scales/scale_lists.h"

#include <algorithm>

#include "model/language/item.h"

namespace calyx {

namespace {

constexpr std::array<std::string_view, 22> kNames{
    "SCL.ZTRKBND",   "SCL.ZRANGE",  "SCL.MOTBAND", "SCL.OVRLOAD",   "SCL.DIGFLT",     "SCL.DFSENS",
    "SCL.DFTHRH",    "SCL.SMPRATE", "SCL.TAREFN",  "SCL.DECPNT",    "SCL.DSPDIV",     "SCL.UNITS",
    "SCL.ROC.UNITS", "SCL.POWER",   "SC.INPRNG",   "SC.SMPRAT.10V", "SC.THERMO.TYPE", "SC.TEMP.DECPNT",
    "SC.TEMP.UNITS", "SC.PEAKHOLD", "SC.SPLIT",    "SCL.KINDS"};

}  // namespace

CScaleLists::CScaleLists(const ModelContext& context) {
    std::transform(kNames.begin(), kNames.end(), lists_.begin(),
                   [&](std::string_view name) { return detail::NeedList(name, context); });
}

}  // namespace calyx
