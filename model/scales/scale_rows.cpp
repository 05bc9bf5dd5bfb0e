#include "model/scales/scale_codecs.h"
#include "model/scales/scale_fields.h"
#include "model/scales/scale_source.h"
#include "model/validation/validate.h"

namespace calyx {

namespace {

using F = ScaleFields;

constexpr int kTitle = 3100;  // "Scale {1}"
// Headings of the editor page.
constexpr int kSource = 3101, kCapacity = 3102, kZeroAndMotion = 3103, kFiltering = 3104, kPrimary = 3105,
              kSecondary = 3106, kTertiary = 3107, kMultiRange = 3108, kRate = 3109, kInput = 3110,
              kCalibrated = 3111, kStatistics = 3112, kBehaviour = 3113;
// What is wrong with a value: {1} label, {2} value.
constexpr int kBadAlias = 3408, kNoNumber = 3409, kNegative = 42001;

int CheckAlias(std::string_view value) {
    return !value.empty() && !modValidate::ValidateAlias(value) ? kBadAlias : 0;
}
int CheckNumber(std::string_view value) {
    const auto number = ReadDecimal(value);
    return number && number->whole ? 0 : kNoNumber;
}

// How large a value may be, the indicator alone knows.
int CheckSign(std::string_view value) {
    const auto number = ReadDecimal(value);
    return number && number->value < 0 ? kNegative : 0;
}

void WriteKind(std::string& out, const F& fields, const Target&) {
    AppendInteger(out, fields.kind);
}
// Sources that another kind would misunderstand go; their own line stands behind in every set of changes.
Taken TakeKind(F& fields, std::string_view text) {
    const auto number = ReadInteger(text);
    if (!number || !number->whole || !scale_kind::IsKind(number->value)) return Taken::Not;
    const auto readsAsPort = [](std::int32_t kind) {
        return kind == scale_kind::kSerial || kind == scale_kind::kIndustrial;
    };
    const bool alike = readsAsPort(fields.kind) && readsAsPort(number->value);
    if (fields.kind != number->value && !alike) {
        fields.sources = {};
        fields.sourceCount = 0;
        if (number->value == scale_kind::kProgrammable) {
            fields.sources[0] = fields.number;
            fields.sourceCount = 1;
        }
    }
    fields.kind = number->value;
    return Taken::Whole;
}
void WriteSource(std::string& out, const F& fields, const Target&) {
    AppendSource(out, fields);
}

// A word of a list; one that the list does not have becomes the initial value, not the list's own.
template <auto Member, std::size_t... Element>
consteval Row<F> Word(std::string_view stem, std::string_view initial, More more) {
    more.unknown = Unknown::Initial;
    return row<Member, kFixed10, Element...>(stem, initial, more);
}
template <auto Member, std::size_t... Element>
consteval Row<F> Calibrated(std::string_view stem, int label, int help) {
    return row<Member, kFixed10, Element...>(
        stem, "0", {.label = label, .group = kCalibrated, .help = help, .rule = CheckNumber});
}

// One row a line, as a table. The kind stands first: it says how the source is read.
// clang-format off
constexpr Row<F> kRows[] = {
    ownRow<F>("KIND", "1", ValueKind::Integer, "a number from 1 to 8", WriteKind, TakeKind, {.list = "SCL.KINDS", .label = 3001, .group = kSource, .help = 3201, .use = Use::State}),
    ownRow<F>("SRC", "NONE", ValueKind::Text, "NONE, or a letter and the sources, for example A,1,2 or S,3 or S,3.1", WriteSource, TakeSource, {.label = 3002, .group = kSource, .help = 3202}),
    row<&F::grads, kInteger>("GRADS", "10000", {.label = 3003, .group = kCapacity, .help = 3203, .rule = CheckSign}),
    row<&F::rattleTrap, kExactlyOn>("RATLTRAP", "OFF", {.label = 3004, .group = kFiltering, .help = 3204}),
    Word<&F::powerUpMode>("PWRUPMD", "GO", {.list = "SCL.POWER", .label = 3005, .group = kBehaviour, .help = 3205}),
    row<&F::accumulator, kExactlyOn>("ACCUM", "OFF", {.label = 3006, .group = kBehaviour, .help = 3206}),
    row<&F::visible, kExactlyOn>("VISIBLE", "ON", {.label = 3007, .group = kBehaviour, .help = 3207}),
    row<&F::zeroTrackBand, kBand<float>>("ZTRKBND", "0D", {.list = "SCL.ZTRKBND", .offered = true, .label = 3008, .group = kZeroAndMotion, .help = 3208, .rule = CheckSign}),
    row<&F::zeroRange, kSingleWith<'%'>>("ZRANGE", "1.9%", {.list = "SCL.ZRANGE", .offered = true, .label = 3009, .group = kZeroAndMotion, .help = 3209, .rule = CheckSign}),
    row<&F::motionBand, kBand<std::int16_t>>("MOTBAND", "1D", {.list = "SCL.MOTBAND", .offered = true, .label = 3010, .group = kZeroAndMotion, .help = 3210, .rule = CheckSign}),
    row<&F::standstillTime, kInteger>("SSTIME", "10", {.label = 3011, .group = kZeroAndMotion, .help = 3211, .rule = CheckSign}),
    Word<&F::overload>("OVRLOAD", "FS+2%", {.list = "SCL.OVRLOAD", .label = 3012, .group = kCapacity, .help = 3212}),
    Word<&F::digitalFilter, 0>("DIGFLTR1", "4", {.list = "SCL.DIGFLT", .label = 3013, .group = kFiltering, .help = 3213}),
    Word<&F::digitalFilter, 1>("DIGFLTR2", "4", {.list = "SCL.DIGFLT", .label = 3014, .group = kFiltering, .help = 3213}),
    Word<&F::digitalFilter, 2>("DIGFLTR3", "4", {.list = "SCL.DIGFLT", .label = 3015, .group = kFiltering, .help = 3213}),
    Word<&F::filterSensitivity>("DFSENS", "2OUT", {.list = "SCL.DFSENS", .label = 3016, .group = kFiltering, .help = 3216}),
    Word<&F::filterThreshold>("DFTHRH", "NONE", {.list = "SCL.DFTHRH", .label = 3017, .group = kFiltering, .help = 3217}),
    Word<&F::sampleRate>("SMPRAT", "30HZ", {.list = "SCL.SMPRATE", .label = 3018, .group = kFiltering, .help = 3218}),
    Word<&F::tareFunction>("TAREFN", "BOTH", {.list = "SCL.TAREFN", .label = 3019, .group = kBehaviour, .help = 3219}),
    Word<&F::peakHold>("PEAKHOLD", "OFF", {.list = "SC.PEAKHOLD", .label = 3020, .group = kBehaviour, .help = 3220}),
    row<&F::alias, kFixed8>("ALIAS", "", {.label = 3021, .group = kSource, .help = 3221, .absentValue = "Scale{n}", .absent = Absent::Value, .rule = CheckAlias}),

    Word<&F::priDecimalPoint>("PRI.DECPNT", "8888888", {.list = "SCL.DECPNT", .label = 3022, .group = kPrimary, .help = 3222}),
    Word<&F::priDisplayDivision>("PRI.DSPDIV", "1D", {.list = "SCL.DSPDIV", .label = 3023, .group = kPrimary, .help = 3223}),
    Word<&F::priUnits>("PRI.UNITS", "LB", {.list = "SCL.UNITS", .label = 3024, .group = kPrimary, .help = 3224}),
    row<&F::priCustomUnits, kFixed8>("PRI.CUNITS", "", {.label = 3025, .group = kPrimary, .help = 3225}),
    Word<&F::secDecimalPoint>("SEC.DECPNT", "888888.8", {.list = "SCL.DECPNT", .label = 3026, .group = kSecondary, .help = 3222}),
    Word<&F::secDisplayDivision>("SEC.DSPDIV", "2D", {.list = "SCL.DSPDIV", .label = 3027, .group = kSecondary, .help = 3223}),
    Word<&F::secUnits>("SEC.UNITS", "KG", {.list = "SCL.UNITS", .label = 3028, .group = kSecondary, .help = 3228}),
    row<&F::secCustomUnits, kFixed8>("SEC.CUNITS", "", {.label = 3029, .group = kSecondary, .help = 3225}),
    row<&F::secMultiplier, kMultiplier>("SEC.MULT", ".453592", {.label = 3030, .group = kSecondary, .help = 3230, .rule = CheckSign}),
    Word<&F::terDecimalPoint>("TER.DECPNT", "888888.8", {.list = "SCL.DECPNT", .label = 3031, .group = kTertiary, .help = 3222}),
    Word<&F::terDisplayDivision>("TER.DSPDIV", "5D", {.list = "SCL.DSPDIV", .label = 3032, .group = kTertiary, .help = 3223}),
    Word<&F::terUnits>("TER.UNITS", "KG", {.list = "SCL.UNITS", .label = 3033, .group = kTertiary, .help = 3228}),
    row<&F::terCustomUnits, kFixed8>("TER.CUNITS", "", {.label = 3034, .group = kTertiary, .help = 3225}),
    row<&F::terMultiplier, kMultiplier>("TER.MULT", ".453592", {.label = 3035, .group = kTertiary, .help = 3235, .rule = CheckSign}),
    Word<&F::rocDecimalPoint>("ROC.DECPNT", "8888888", {.list = "SCL.DECPNT", .label = 3036, .group = kRate, .help = 3236}),
    Word<&F::rocDisplayDivision>("ROC.DSPDIV", "1D", {.list = "SCL.DSPDIV", .label = 3037, .group = kRate, .help = 3237}),
    Word<&F::rocUnits>("ROC.UNITS", "SEC", {.list = "SCL.ROC.UNITS", .label = 3038, .group = kRate, .help = 3238}),
    row<&F::rocMultiplier, kMultiplier>("ROC.MULT", "1.", {.label = 3039, .group = kRate, .help = 3239, .rule = CheckSign}),
    row<&F::rocInterval, kInteger>("ROC.INTERVL", "10", {.label = 3040, .group = kRate, .help = 3240, .rule = CheckSign}),
    row<&F::rocRefresh, kSingle>("ROC.REFRESH", "0.1", {.label = 3041, .group = kRate, .help = 3241, .rule = CheckSign}),

    Calibrated<&F::testWeight>("WVAL", 3042, 3242),
    Calibrated<&F::zeroCount>("LC.CD", 3043, 3243),
    Calibrated<&F::spanCount>("LC.CW", 3044, 3244),
    Calibrated<&F::zeroReference>("LC.CZ", 3045, 3245),
    Calibrated<&F::linearCounts, 0>("WLIN.F1", 3046, 3246),
    Calibrated<&F::linearCounts, 1>("WLIN.F2", 3047, 3246),
    Calibrated<&F::linearCounts, 2>("WLIN.F3", 3048, 3246),
    Calibrated<&F::linearCounts, 3>("WLIN.F4", 3049, 3246),
    Calibrated<&F::linearCounts, 4>("WLIN.F5", 3050, 3246),
    Calibrated<&F::linearWeight, 0>("WLIN.V1", 3051, 3251),
    Calibrated<&F::linearWeight, 1>("WLIN.V2", 3052, 3251),
    Calibrated<&F::linearWeight, 2>("WLIN.V3", 3053, 3251),
    Calibrated<&F::linearWeight, 3>("WLIN.V4", 3054, 3251),
    Calibrated<&F::linearWeight, 4>("WLIN.V5", 3055, 3251),

    row<&F::weighmentThreshold, kInteger>("WMTTHRH", "100", {.label = 3056, .group = kStatistics, .help = 3256, .rule = CheckSign}),
    row<&F::numberOfWeighments, kInteger>("NUMWEIGH", "0", {.label = 3057, .group = kStatistics, .help = 3257, .use = Use::ReadOnly}),
    row<&F::maxWeight, kSingle>("MAX_WEIGHT", "0", {.label = 3058, .group = kStatistics, .help = 3258, .use = Use::ReadOnly}),
    row<&F::maxWeightDate, kIndicatorDate>("MAX_DATE", "", {.label = 3059, .group = kStatistics, .help = 3259, .use = Use::ReadOnly}),

    row<&F::analogInCurrentMax, kSingle>("AINMAX", "100", {.label = 3060, .group = kInput, .help = 3260}),
    Word<&F::analogInputRange>("INPRNG", "10V", {.list = "SC.INPRNG", .label = 3061, .group = kInput, .help = 3261}),
    Word<&F::analogInputSampleRate>("SMPRAT.10V", "60HZ", {.list = "SC.SMPRAT.10V", .label = 3062, .group = kInput, .help = 3262}),
    Word<&F::thermocoupleType>("THERMO.TYPE", "TYPE K", {.list = "SC.THERMO.TYPE", .label = 3063, .group = kInput, .help = 3263}),
    Word<&F::thermocoupleDecimalPoint, 0>("TPRI.DECPNT", "888888.8", {.list = "SC.TEMP.DECPNT", .label = 3064, .group = kPrimary, .help = 3264}),
    Word<&F::thermocoupleDecimalPoint, 1>("TSEC.DECPNT", "888888.8", {.list = "SC.TEMP.DECPNT", .label = 3065, .group = kSecondary, .help = 3264}),
    Word<&F::thermocoupleDecimalPoint, 2>("TTER.DECPNT", "888888.8", {.list = "SC.TEMP.DECPNT", .label = 3066, .group = kTertiary, .help = 3264}),
    Word<&F::thermocoupleUnits, 0>("TPRI.UNITS", "F", {.list = "SC.TEMP.UNITS", .label = 3067, .group = kPrimary, .help = 3267}),
    Word<&F::thermocoupleUnits, 1>("TSEC.UNITS", "C", {.list = "SC.TEMP.UNITS", .label = 3068, .group = kSecondary, .help = 3267}),
    Word<&F::thermocoupleUnits, 2>("TTER.UNITS", "K", {.list = "SC.TEMP.UNITS", .label = 3069, .group = kTertiary, .help = 3267}),
    row<&F::range, kSingle, 0>("RANGE1.MAX", "100", {.label = 3070, .group = kMultiRange, .help = 3270, .rule = CheckSign}),
    row<&F::range, kSingle, 1>("RANGE2.MAX", "100", {.label = 3071, .group = kMultiRange, .help = 3270, .rule = CheckSign}),
    row<&F::range, kSingle, 2>("RANGE3.MAX", "100", {.label = 3072, .group = kMultiRange, .help = 3270, .rule = CheckSign}),
    Word<&F::split>("SPLIT", "OFF", {.list = "SC.SPLIT", .label = 3073, .group = kMultiRange, .help = 3273}),
};
// clang-format on
constexpr Lines lines{kRows};

bool IsSplit(const F& fields) {
    return fields.split.Trimmed() != "OFF";
}

// Runs of lines that several kinds share.
constexpr Gate k301 = Since("3.01.");
constexpr auto kNamed = lines("ALIAS", "VISIBLE");
constexpr auto kFilter = lines("DIGFLTR1", "DIGFLTR2", "DIGFLTR3", "DFSENS", "DFTHRH");
constexpr auto kPriFormat = lines("PRI.DECPNT", "PRI.DSPDIV");
constexpr auto kUnits =
    Join(kPriFormat, lines("PRI.UNITS"), Gated(k301, lines("PRI.CUNITS")),
         lines("SEC.DECPNT", "SEC.DSPDIV", "SEC.UNITS"), Gated(k301, lines("SEC.CUNITS")), lines("SEC.MULT"),
         lines("TER.DECPNT", "TER.DSPDIV", "TER.UNITS"), Gated(k301, lines("TER.CUNITS")), lines("TER.MULT"));
// With ranges in use the two other formats come a second time.
constexpr auto kRanges = Gated(
    k301, Join(lines("SPLIT"), When(IsSplit, lines("RANGE1.MAX", "RANGE2.MAX", "RANGE3.MAX", "SEC.DECPNT",
                                                   "SEC.DSPDIV", "TER.DECPNT", "TER.DSPDIV"))));
constexpr auto kRateOfChange =
    lines("ROC.DECPNT", "ROC.DSPDIV", "ROC.UNITS", "ROC.MULT", "ROC.INTERVL", "ROC.REFRESH");
// Kept and sent apart: a download can leave the calibration of the indicator as it is.
constexpr auto kCalibration = Calibration(Join(lines("WVAL", "LC.CD", "LC.CW"), Gated(k301, lines("LC.CZ")),
                                               lines("WLIN.F1", "WLIN.F2", "WLIN.F3", "WLIN.F4", "WLIN.F5",
                                                     "WLIN.V1", "WLIN.V2", "WLIN.V3", "WLIN.V4", "WLIN.V5")));

// One layout a kind.
constexpr auto kNotConfigured = lines("SRC");
constexpr auto kAnalog =
    Join(lines("SRC"), kNamed,
         lines("GRADS", "ZRANGE", "MOTBAND", "ZTRKBND", "SSTIME", "OVRLOAD", "TAREFN", "ACCUM"),
         Gated(k301, lines("PEAKHOLD")), lines("RATLTRAP"), kFilter, lines("SMPRAT", "PWRUPMD"), kUnits,
         kRanges, kRateOfChange, Gated(Since("2.00."), lines("WMTTHRH")), kCalibration);
constexpr auto kSerial = Join(lines("SRC"), kNamed, lines("ACCUM"),
                              Gated(Since("2.00."), lines("PRI.UNITS", "PRI.CUNITS", "SEC.UNITS",
                                                          "SEC.CUNITS", "TER.UNITS", "TER.CUNITS")),
                              kCalibration);
constexpr auto kTotal =
    Join(lines("SRC"), kNamed, lines("GRADS", "ZRANGE", "MOTBAND", "SSTIME", "OVRLOAD", "TAREFN", "ACCUM"),
         kPriFormat,
         lines("PRI.UNITS", "PRI.CUNITS", "SEC.DECPNT", "SEC.DSPDIV", "SEC.UNITS", "SEC.CUNITS", "SEC.MULT",
               "TER.DECPNT", "TER.DSPDIV", "TER.UNITS", "TER.CUNITS", "TER.MULT"),
         kCalibration);
// The primary format comes twice, on purpose.
constexpr auto kVexal =
    Join(lines("SRC"), Gated(Since("2.00."), kNamed),
         lines("GRADS", "ZRANGE", "MOTBAND", "SSTIME", "OVRLOAD", "TAREFN", "ACCUM", "RATLTRAP", "ZTRKBND"),
         kFilter, lines("PWRUPMD"), kPriFormat, lines("PRI.UNITS"), kRanges, kUnits, kRateOfChange,
         lines("WMTTHRH"), Gated(k301, lines("PEAKHOLD")), kCalibration);
constexpr auto kProgrammable = Join(lines("SRC"), Gated(Since("2.01."), kNamed),
                                    lines("GRADS", "MOTBAND", "SSTIME", "OVRLOAD", "ACCUM", "RATLTRAP"),
                                    kFilter, lines("PWRUPMD"), kPriFormat, lines("WMTTHRH"), kCalibration);
constexpr auto kIndustrial = Join(lines("SRC"), kNamed, kCalibration);
// Analog input: one layout an input range.
constexpr auto kInputHead =
    Join(lines("SRC"), Gated(Since("2.05."), kNamed), Gated(k301, lines("INPRNG", "PEAKHOLD")));
constexpr auto kVoltage = Join(kInputHead, lines("GRADS"), kUnits, kRanges, kRateOfChange,
                               lines("ZTRKBND", "ZRANGE", "MOTBAND", "SSTIME", "OVRLOAD", "WMTTHRH"), kFilter,
                               lines("RATLTRAP", "SMPRAT.10V", "PWRUPMD", "TAREFN", "ACCUM"), kCalibration);
constexpr auto kCurrent = Join(kInputHead, lines("GRADS", "AINMAX"), kUnits, kRateOfChange, kCalibration);
constexpr auto kThermocouple = Join(kInputHead,
                                    lines("THERMO.TYPE", "TPRI.DECPNT", "TPRI.UNITS", "TSEC.DECPNT",
                                          "TSEC.UNITS", "TTER.DECPNT", "TTER.UNITS"),
                                    kFilter, lines("SMPRAT.10V"), kCalibration);

Layout<F> InputLayout(const F& fields) {
    const std::string_view range = fields.analogInputRange.Trimmed();
    if (range == "20MA") return kCurrent;
    if (range == "THERM") return kThermocouple;
    return kVoltage;  // "10V" and "100MV"
}

Layout<F> LayoutOf(const F& fields) {
    switch (fields.kind) {
        case scale_kind::kAnalog:
            return kAnalog;
        case scale_kind::kSerial:
            return kSerial;
        case scale_kind::kTotal:
            return kTotal;
        case scale_kind::kVexal:
            return kVexal;
        case scale_kind::kProgrammable:
            return kProgrammable;
        case scale_kind::kAnalogInput:
            return InputLayout(fields);
        case scale_kind::kIndustrial:
            return kIndustrial;
        default:
            return kNotConfigured;
    }
}

void Number(F& fields, int number) {
    fields.number = number;
}

}  // namespace

constexpr RowTable<ScaleFields> kScaleTable{
    .rows = kRows, .layout = LayoutOf, .prefix = "SC.", .title = kTitle, .begin = Number};

}  // namespace calyx
