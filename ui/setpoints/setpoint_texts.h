#pragma once

// The resource texts of the pages of setpoints.
namespace calyx::ui::say {

inline constexpr int kSentenceName = 20900;
inline constexpr int kDrawingName = 20901;
// Marks on the axis; {1} number.
inline constexpr int kMarkTrip = 20902;
inline constexpr int kMarkPreact = 20903;
inline constexpr int kMarkReady = 20904;
inline constexpr int kMarkBandFrom = 20905;
inline constexpr int kMarkBandTo = 20906;
inline constexpr int kMarkUnder = 20907;
inline constexpr int kMarkOver = 20908;

inline constexpr int kToNumber = 20910;
inline constexpr int kDuplicate = 20911;
inline constexpr int kMove = 20912;
inline constexpr int kClear = 20913;
inline constexpr int kFree = 20914;
inline constexpr int kDuplicateTip = 20915;
inline constexpr int kMoveTip = 20916;
inline constexpr int kClearTip = 20917;
inline constexpr int kSameNumber = 20918;  // {1} number
inline constexpr int kNothingToCopy = 20919;
inline constexpr int kDuplicateTitle = 20920;
inline constexpr int kInUse = 20921;            // {1} number, {2} sentence
inline constexpr int kCopyReplaces = 20922;     // {1} number
inline constexpr int kReplaceSetpoint = 20923;  // {1} number
inline constexpr int kKeepSetpoint = 20924;     // {1} number
inline constexpr int kMoveTitle = 20925;
inline constexpr int kMoveChoices = 20926;
inline constexpr int kMoveAlong = 20927;
inline constexpr int kSwap = 20928;
inline constexpr int kKeepNumbers = 20929;
inline constexpr int kDuplicateStep = 20930;  // {1} from, {2} to
inline constexpr int kMoveStep = 20931;       // {1} from, {2} to
inline constexpr int kSwapStep = 20932;       // {1} one, {2} other
inline constexpr int kClearStep = 20933;      // {1} number
inline constexpr int kNothingToClear = 20934;

}  // namespace calyx::ui::say
