#include <algorithm>

#include "model/setpoints/setpoint_codecs.h"
#include "model/setpoints/setpoint_fields.h"
#include "model/validation/validate.h"

namespace calyx {

namespace {

using F = SetpointFields;

// Headings of the editor page.
constexpr int kSetpoint = 3601, kTrip = 3602, kPreact = 3603, kTolerance = 3604, kBatch = 3605,
              kOnTrip = 3606, kOutput = 3607, kInput = 3608, kWeigher = 3609, kTime = 3610, kTimer = 3611,
              kOperator = 3612;
constexpr int kItemTitle = 3500;
constexpr int kBadAlias = 3901;  // {1} label, {2} value

int CheckAlias(std::string_view alias) {
    return !alias.empty() && !modValidate::ValidateAlias(alias) ? kBadAlias : 0;
}

// A missing line reads as the initial value. Rows that do not say so leave the present one, on purpose: that
// is the indicator's own rule for values, references and names.
constexpr auto kInitial = Absent::Initial;

// Behind which word the number of the source stands is for the kind to say; both are read.
constexpr Row<F> Source(Row<F> made) {
    made.write = [](std::string& out, const F& fields, const Target&) {
        out += WatchesPulses(fields.kind) ? word::kPulse : word::kScale;
        AppendInteger(out, fields.source);
    };
    made.take = [](F& fields, std::string_view text) {
        const auto* const written = StartsNoCase(Trim(text), word::kPulse) ? word::kPulse : word::kScale;
        return TakeByLength(fields.source, text, written, NoneWord::Unknown);
    };
    return made;
}

std::string_view TripList(const F& fields) {
    return fields.kind == SetpointKind::PulseRate ? "SP.TRIP.BAND" : "SP.TRIP";
}

// One row a line, as a table.
// clang-format off
constexpr Row<F> kRows[] = {
    row<&F::kind, kKindWord>("KIND", "OFF", {.list = "SP.KINDS", .label = 3501, .group = kSetpoint, .help = 3701, .absent = kInitial}),
    row<&F::alias, kFixed8>("ALIAS", "", {.label = 3502, .group = kSetpoint, .help = 3702, .rule = CheckAlias}),
    row<&F::enabled, kExactlyOn>("ENABLE", "ON", {.label = 3503, .group = kSetpoint, .help = 3703, .absent = kInitial}),
    row<&F::value, kNumber>("VALUE", "0", {.label = 3504, .group = kTrip, .help = 3704}),
    Source(row<&F::source, kInteger>("SOURCE", "SCALE0", {.label = 3505, .group = kTrip, .help = 3705, .absent = kInitial})),
    row<&F::relNum, kInteger>("RELNUM", "0", {.label = 3506, .group = kTrip, .help = 3706, .min = 0, .max = kSetpoints}),
    row<&F::batch, kExactlyOn>("BATCH", "OFF", {.label = 3507, .group = kBatch, .help = 3707, .absent = kInitial}),
    row<&F::trip, kFixed10>("TRIP", "", {.list = "SP.TRIP", .label = 3508, .group = kTrip, .help = 3708, .absent = kInitial}).ListBy(TripList),
    row<&F::hysteresis, kNumber>("HYSTER", "0", {.label = 3509, .group = kTrip, .help = 3709}),
    row<&F::preact, kFixed10>("PREACT", "", {.list = "SP.PREACT", .label = 3510, .group = kPreact, .help = 3710, .absent = kInitial}),
    row<&F::preValue, kNumber>("PREVAL", "0", {.label = 3511, .group = kPreact, .help = 3711}),
    row<&F::preAdj, kNumber>("PREADJ", "0", {.label = 3512, .group = kPreact, .help = 3712}),
    row<&F::preCount, kInteger>("PCOUNT", "1", {.label = 3513, .group = kPreact, .help = 3713, .absent = kInitial}),
    row<&F::preStab, kInteger>("PRESTAB", "0", {.label = 3514, .group = kPreact, .help = 3714, .absent = kInitial}),
    row<&F::tolBand, kNumber>("TOLBAND", "0", {.label = 3515, .group = kTolerance, .help = 3715, .absent = kInitial}),
    row<&F::tolCount, kInteger>("TOLCNT", "0", {.label = 3516, .group = kTolerance, .help = 3716, .absent = kInitial}),
    row<&F::bandValue, kNumber>("BANDVAL", "0", {.label = 3517, .group = kTrip, .help = 3717}),
    row<&F::nSample, kInteger>("NSAMPLE", "1", {.label = 3518, .group = kTrip, .help = 3718, .absent = kInitial}),
    row<&F::branch, kInteger>("BRANCH", "0", {.label = 3519, .group = kBatch, .help = 3719, .min = 0, .max = kSetpoints}),
    row<&F::clearAccum, kExactlyOn>("CLRACCM", "OFF", {.label = 3520, .group = kOnTrip, .help = 3720, .absent = kInitial}),
    row<&F::clearTare, kExactlyOn>("CLRTARE", "OFF", {.label = 3521, .group = kOnTrip, .help = 3721, .absent = kInitial}),
    row<&F::pushTare, kExactlyOn>("PSHTARE", "OFF", {.label = 3522, .group = kOnTrip, .help = 3722, .absent = kInitial}),
    row<&F::pushAccum, kFixed10>("PSHACCM", "", {.list = "SP.PSHACCM", .label = 3523, .group = kOnTrip, .help = 3723, .absent = kInitial}),
    row<&F::pushPrint, kFixed10>("PSHPRINT", "", {.list = "SP.PSHPRINT", .label = 3524, .group = kOnTrip, .help = 3724, .absent = kInitial}),
    row<&F::alarm, kExactlyOn>("ALARM", "OFF", {.label = 3525, .group = kOnTrip, .help = 3725, .absent = kInitial}),
    row<&F::access, kFixed10>("ACCESS", "", {.list = "SP.ACCESS", .label = 3526, .group = kOperator, .help = 3726, .absent = kInitial}),
    row<&F::nameNumber, kInteger>("NAME", "0", {.label = 3527, .group = kOperator, .help = 3727, .absent = kInitial}),
    row<&F::digOutCard, kOutputSlot>("DSLOT", "NONE", {.label = 3528, .group = kOutput, .help = 3728, .absent = kInitial}),
    row<&F::digOutPos, kOutputBit>("DIGOUT", "BIT0", {.label = 3529, .group = kOutput, .help = 3729, .absent = kInitial}),
    row<&F::digInCard, kInputSlot>("DISLOT", "SLOT0", {.label = 3530, .group = kInput, .help = 3730, .absent = kInitial}),
    row<&F::inputMask, kInteger>("MASK", "0", {.label = 3531, .group = kInput, .help = 3731, .min = 0, .max = 2147483647, .absent = kInitial}),
    row<&F::sense, kFixed10>("SENSE", "", {.list = "SP.SENSE", .label = 3532, .group = kOutput, .help = 3732, .absent = kInitial}),
    row<&F::coastTime, kInteger>("COAST", "0", {.label = 3533, .group = kTrip, .help = 3733, .absent = kInitial}),
    row<&F::start, kNumber>("START", "0", {.label = 3534, .group = kTimer, .help = 3734, .min = 0, .max = kSetpoints}),
    row<&F::end, kNumber>("END", "0", {.label = 3535, .group = kTimer, .help = 3735, .min = 0, .max = kSetpoints}),
    row<&F::time, kTimeOfDay>("TIME", "0000", {.label = 3536, .group = kTime, .help = 3736}),
    row<&F::duration, kDuration>("DURATION", "000000", {.label = 3537, .group = kTime, .help = 3737}),
    row<&F::chVUnder, kNumber>("VUNDER", "0", {.label = 3538, .group = kWeigher, .help = 3738}),
    row<&F::chVOver, kNumber>("VOVER", "0", {.label = 3539, .group = kWeigher, .help = 3739}),
    row<&F::chDUnder, kWeigherBit>("DUNDER", "NONE", {.label = 3540, .group = kWeigher, .help = 3740, .absent = kInitial}),
    row<&F::chDOver, kWeigherBit>("DOVER", "NONE", {.label = 3541, .group = kWeigher, .help = 3741, .absent = kInitial}),
    row<&F::chDAccept, kWeigherBit>("DACCEPT", "NONE", {.label = 3542, .group = kWeigher, .help = 3742, .absent = kInitial}),
};
// clang-format on
constexpr Lines lines{kRows};

bool IsBand(const F& fields) {
    return fields.TripsInBand();
}
bool IsLevel(const F& fields) {
    return !fields.TripsInBand();
}
bool AdjustsPreact(const F& fields) {
    const auto word = fields.preact.Trimmed();
    return IsLevel(fields) && (word == "LEARN" || word == "FLOW");
}
bool HasTolerance(const F& fields) {
    return fields.ToleranceInUse();
}
bool HasLevelTolerance(const F& fields) {
    return IsLevel(fields) && HasTolerance(fields);
}
bool HasOutput(const F& fields) {
    return fields.digOutCard != 0;
}

// Every setpoint but one that is off, and the runs that kinds share.
constexpr auto kHead = Join(lines("KIND", "ALIAS"), Gated(Since("3.04."), lines("ENABLE")));
constexpr auto kBandRun = When(IsBand, lines("BANDVAL"));
constexpr auto kActionRun =
    lines("BRANCH", "CLRACCM", "CLRTARE", "PSHTARE", "ALARM", "PSHACCM", "PSHPRINT", "ACCESS", "NAME");
constexpr auto kPushRun = lines("CLRACCM", "CLRTARE", "PSHTARE", "PSHACCM", "PSHPRINT", "ACCESS", "NAME");
constexpr auto kOperatorRun = lines("ACCESS", "NAME");
constexpr auto kOutputRun = Join(lines("DSLOT"), When(HasOutput, lines("DIGOUT")));
constexpr auto kSenseLine = Gated(Since("2.05."), lines("SENSE"));
constexpr auto kTail = Join(kOutputRun, kSenseLine);
constexpr auto kLevelTolerance = When(HasLevelTolerance, lines("TOLBAND", "TOLCNT"));
constexpr auto kWeightRun = Join(lines("BATCH", "TRIP"), When(IsLevel, lines("HYSTER", "PREACT", "PREVAL")),
                                 When(AdjustsPreact, lines("PREADJ", "PCOUNT", "PRESTAB")), kLevelTolerance,
                                 kBandRun, kActionRun, kTail);

constexpr auto kOff = lines("KIND");
constexpr auto kWeight = Join(kHead, lines("VALUE", "SOURCE"), kWeightRun);
constexpr auto kRelative = Join(kHead, lines("VALUE", "SOURCE", "RELNUM"), kWeightRun);
constexpr auto kAccumulator =
    Join(kHead, lines("VALUE", "SOURCE", "BATCH", "TRIP"), kLevelTolerance, kBandRun, kActionRun, kTail);
constexpr auto kRateOfChange =
    Join(kHead, lines("VALUE", "SOURCE", "BATCH", "TRIP"), kBandRun, kActionRun, kTail);
constexpr auto kDigitalInput =
    Join(kHead, lines("BATCH"), kActionRun, kOutputRun, lines("DISLOT", "MASK"), kSenseLine);
// The band is written whatever the trip is.
constexpr auto kAverage = Join(kHead, lines("VALUE", "SOURCE", "BATCH", "TRIP", "HYSTER"),
                               When(HasTolerance, lines("TOLBAND", "TOLCNT")), lines("BANDVAL"), kActionRun,
                               kOutputRun, lines("NSAMPLE"), kSenseLine);
constexpr auto kWaitStandstill = Join(kHead, lines("SOURCE"), kPushRun, kTail);
constexpr auto kDelayOrDelta = Join(kHead, lines("VALUE", "SOURCE"), kPushRun, kTail);
constexpr auto kAutoJog = Join(kHead, lines("VALUE"), kPushRun, kTail);
constexpr auto kCounter = Join(kHead, lines("VALUE", "BRANCH"), kOperatorRun, kTail);
constexpr auto kTimerLayout = Join(kHead, lines("VALUE", "START", "END"), kOperatorRun, kTail);
constexpr auto kPauseOrPrint = Join(kHead, kOperatorRun, kTail);
constexpr auto kScaleState = Join(kHead, lines("SOURCE"), kOperatorRun, kTail);
constexpr auto kTimeOfDayLayout =
    Join(kHead, lines("SOURCE", "BATCH"), kPushRun, kOutputRun, lines("TIME", "DURATION"), kSenseLine);
constexpr auto kPulseCount = Join(kHead, lines("BATCH", "VALUE", "SOURCE", "COAST"), kOperatorRun, kOutputRun,
                                  lines("PSHPRINT", "BRANCH"), kSenseLine);
constexpr auto kPulseRate = Join(kHead, lines("VALUE", "SOURCE"), kOperatorRun, kOutputRun,
                                 lines("TRIP", "BANDVAL", "PSHPRINT"), kSenseLine);
constexpr auto kCheckWeigher = Join(kHead, lines("SOURCE", "VUNDER", "VOVER"), kOperatorRun,
                                    lines("DSLOT", "DUNDER", "DOVER", "DACCEPT"));
constexpr auto kNever = Join(kHead, lines("BRANCH"));
// Older firmware does not know the kind: of such a setpoint it gets the head alone.
constexpr auto kInputCount =
    Join(kHead, Gated(Since("2.05."), Join(lines("ACCESS", "BATCH"), kOutputRun,
                                           lines("DISLOT", "MASK", "NAME", "SENSE", "VALUE"))));

constexpr Layout<F> kLayouts[] = {
    kOff,          kWeight,     kWeight,       kWeight,       kWeight,      kAccumulator,
    kDigitalInput, kRelative,   kRelative,     kRelative,     kRelative,    kWaitStandstill,
    kDelayOrDelta, kCounter,    kPauseOrPrint, kAutoJog,      kHead,        kScaleState,
    kScaleState,   kScaleState, kPauseOrPrint, kTimerLayout,  kTimerLayout, kTimeOfDayLayout,
    kDelayOrDelta, kAverage,    kCheckWeigher, kRateOfChange, kPulseCount,  kPulseRate,
    kNever,        kInputCount,
};
static_assert(std::size(kLayouts) == kLastSetpointKind);

Layout<F> LayoutOf(const F& fields) {
    return kLayouts[static_cast<std::size_t>(fields.kind) - 1];
}

// A pulse rate knows band trips only.
void Settle(F& fields) {
    if (fields.kind == SetpointKind::PulseRate && !fields.TripsInBand()) fields.trip.Assign("INBAND");
}

}  // namespace

constexpr RowTable<F> kSetpointTable{
    .rows = kRows, .layout = LayoutOf, .prefix = "SP.", .settle = Settle, .title = kItemTitle};

std::string SetpointKey(std::string_view stem, int number) {
    return std::string(kSetpointTable.prefix).append(stem).append("#").append(std::to_string(number));
}

bool HasSetpointLine(const F& fields, std::string_view stem) {
    const Layout<F> layout = LayoutOf(fields);
    return std::any_of(layout.begin(), layout.end(), [&](const Line<F>& line) {
        return kRows[line.row].stem == stem && (line.when == nullptr || line.when(fields));
    });
}

}  // namespace calyx
