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

// The table.
inline constexpr int kTableName = 40120;
inline constexpr int kColumnNumber = 40121;
inline constexpr int kColumnAlias = 40122;
inline constexpr int kColumnKind = 40123;
inline constexpr int kColumnSource = 40124;
inline constexpr int kColumnValue = 40125;
inline constexpr int kColumnTrip = 40126;
inline constexpr int kColumnSlot = 40127;
inline constexpr int kColumnOutput = 40128;
inline constexpr int kColumnBatch = 40129;
inline constexpr int kColumnStep = 40130;
inline constexpr int kColumnSentence = 40131;
inline constexpr int kBesideSteps = 40132;  // {1} step, {2} step
inline constexpr int kFilterText = 40133;
inline constexpr int kFilterHint = 40134;
inline constexpr int kFilterKind = 40135;
inline constexpr int kAllKinds = 40136;
inline constexpr int kOnlyUsed = 40137;
inline constexpr int kOnlyUsedTip = 40138;
inline constexpr int kOnlyBatch = 40139;
inline constexpr int kOnlyBatchTip = 40140;
inline constexpr int kBatchOrder = 40141;
inline constexpr int kBatchOrderTip = 40142;
inline constexpr int kShownOf = 40143;  // {1} shown, {2} all
inline constexpr int kNoMatch = 40144;
inline constexpr int kShowAll = 40145;
inline constexpr int kSentenceOf = 40146;  // {1} number, {2} sentence
inline constexpr int kMoveUp = 40147;
inline constexpr int kMoveDown = 40148;
inline constexpr int kNoFurther = 40149;        // {1} number
inline constexpr int kSetpointsCopied = 40150;  // {1} how many
inline constexpr int kSetpointsPasted = 40151;  // {1} how many, {2} first number
inline constexpr int kSetpointsNoRoom = 40152;  // {1} how many, {2} first number
inline constexpr int kNoSetpointCopied = 40153;
inline constexpr int kSetpointLinesOdd = 40154;  // {1} lines
inline constexpr int kClearSeveralStep = 40155;  // {1} how many
inline constexpr int kSetpointOff = 42306;

}  // namespace calyx::ui::say
