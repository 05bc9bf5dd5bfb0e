#include <algorithm>
#include <utility>

#include "model/junctionboxes/box_fields.h"

namespace calyx {

bool NumberList::Has(int number) const {
    return std::find(numbers.begin(), numbers.end(), number) != numbers.end();
}

NumberList ReadNumberList(std::string_view text, int most) {
    NumberList list;
    if (Trim(text).empty()) return list;
    for (const std::string_view piece : Split(text, ',')) {
        const auto number = ReadInteger(piece);
        const bool good = number && number->whole && number->value >= 1 && number->value <= most &&
                          !list.Has(number->value);
        if (good) {
            list.numbers.push_back(number->value);
        } else {
            list.whole = false;
        }
    }
    return list;
}

std::string JoinNumbers(const std::vector<int>& numbers) {
    std::string text;
    for (const int number : numbers) {
        if (!text.empty()) text += ',';
        AppendInteger(text, number);
    }
    return text;
}

namespace {

using F = BoxFields;

constexpr int kTitle = 8100;  // of a box, {1} its port
// Headings of the editor page. Those of cells and platforms follow one another.
constexpr int kBox = 8101, kSystem = 8102, kDigital = 8103, kAnalog = 8104, kBalance = 8105, kDrift = 8106,
              kPeak = 8107, kZero = 8108, kOther = 8109, kFirstCell = 8111, kFirstPlatform = 8131;
// What is wrong: {1} label, {2} value.
constexpr int kNoNumber = 8401, kNoCells = 8402, kNoPlatforms = 8403;

int CheckNumber(std::string_view value) {
    const auto number = ReadDecimal(value);
    return Trim(value).empty() || (number && number->whole) ? 0 : kNoNumber;
}
int CheckCells(std::string_view value) {
    return ReadNumberList(value, F::kCells).whole ? 0 : kNoCells;
}
int CheckPlatforms(std::string_view value) {
    return ReadNumberList(value, F::kPlatforms).whole ? 0 : kNoPlatforms;
}

// A number that is kept as the text that it was read as.
template <auto Member, std::size_t... Place>
consteval Row<F> Number(std::string_view stem, std::string_view initial, More more) {
    more.rule = CheckNumber;
    return row<Member, kFreeText, Place...>(stem, initial, more);
}
template <auto Member, std::size_t... Place>
consteval Row<F> Percent(std::string_view stem, std::string_view initial, More more) {
    more.min = 0;
    more.max = 100;
    more.unit = "%";
    return Number<Member, Place...>(stem, initial, more);
}
template <auto Member>
consteval Row<F> Switch(std::string_view stem, More more) {
    return row<Member, kExactlyOn>(stem, "OFF", more);
}

// One row a line, as a table.
// clang-format off
constexpr std::array kHead{
    row<&F::serialNumber, kFreeText>("SERIAL_NUMBER", "", {.label = 8004, .group = kBox, .help = 8204, .use = Use::ReadOnly}),
    row<&F::hardwareConfig, kFixedText<7>>("CONFIG", "8/0/0/0", {.list = "SJ.CONFIG", .label = 8001, .group = kBox, .help = 8201, .unknown = Unknown::Initial}),
    row<&F::sectionType, kFixed8>("SECT_TYPE", "PAIRED", {.list = "SJ.SECTTYPE", .label = 8002, .group = kBox, .help = 8202, .unknown = Unknown::Initial}),
    Switch<&F::cellSimulation>("DIAG.CELLEMU", {.label = 8003, .group = kBox, .help = 8203}),
};

template <std::size_t C>
consteval std::array<Row<F>, 6> CellRows() {
    constexpr int n = static_cast<int>(C) + 1;
    constexpr int group = kFirstCell + static_cast<int>(C);
    return {
        row<&F::cellId, kFreeText, C>(kStem<"LC.ID.", n>, kStem<"(Default) Load Cell ", n>, {.label = 8011, .group = group, .help = 8211}),
        // A serial number may hold letters.
        row<&F::cellSerialNumber, kFreeText, C>(kStem<"LC.SRLNUM.", n>, "0", {.label = 8012, .group = group, .help = 8212}),
        Number<&F::cellCapacity, C>(kStem<"LC.CAPCTY.", n>, "0", {.label = 8013, .group = group, .help = 8213}),
        Number<&F::cellSensitivity, C>(kStem<"LC.SENS.", n>, "2", {.label = 8014, .group = group, .help = 8214, .unit = "mV/V"}),
        Number<&F::cellTrim, C>(kStem<"LC.TRIM.", n>, "1", {.label = 8015, .group = group, .help = 8215}),
        Number<&F::cellZero, C>(kStem<"LC.ZERO.", n>, "0", {.label = 8016, .group = group, .help = 8216}),
    };
}

template <std::size_t P, std::size_t L>
consteval std::array<Row<F>, 2> LinearRows() {
    constexpr int platform = static_cast<int>(P) + 1, point = static_cast<int>(L) + 1;
    constexpr int group = kFirstPlatform + static_cast<int>(P);
    constexpr std::size_t place = P * F::kLinearPoints + L;
    return {
        Number<&F::linearWeight, place>(kStem<"PLAT.WLIN.V", point, platform>, "0", {.label = 8031 + static_cast<int>(L), .group = group, .help = 8231}),
        Number<&F::linearSpan, place>(kStem<"PLAT.WLIN.F", point, platform>, "0", {.label = 8036 + static_cast<int>(L), .group = group, .help = 8236}),
    };
}

template <std::size_t P>
consteval auto PlatformRows() {
    constexpr int n = static_cast<int>(P) + 1;
    constexpr int group = kFirstPlatform + static_cast<int>(P);
    constexpr std::array named{
        row<&F::platformName, kFreeText, P>(kStem<"PLAT.NAME.", n>, kStem<"Platform", n>, {.label = 8021, .group = group, .help = 8221}),
        row<&F::platformCells, kFreeText, P>(kStem<"PLAT.CELLS.", n>, "", {.label = 8022, .group = group, .help = 8222, .rule = CheckCells}),
        Number<&F::platformSimulatedCell, P>(kStem<"PLAT.SIM.", n>, "0", {.label = 8023, .group = group, .help = 8223, .min = 0, .max = F::kCells}),
        Number<&F::platformWVal, P>(kStem<"PLAT.WVAL.", n>, "0", {.label = 8024, .group = group, .help = 8224}),
        Number<&F::platformWSpan, P>(kStem<"PLAT.WSPAN.", n>, "0", {.label = 8025, .group = group, .help = 8225}),
    };
    constexpr std::array calibration{
        row<&F::calType, kFixed8, P>(kStem<"PLAT.CALTYPE.", n>, "NONE", {.list = "SJ.PLAT.CALTYPE", .label = 8026, .group = group, .help = 8226, .unknown = Unknown::Initial}),
        row<&F::calMultiplier, kSingle, P>(kStem<"PLAT.CALMULT.", n>, "1", {.label = 8027, .group = group, .help = 8227}),
    };
    return JoinRows(named, LinearRows<P, 0>(), LinearRows<P, 1>(), LinearRows<P, 2>(), LinearRows<P, 3>(), LinearRows<P, 4>(), calibration);
}

constexpr std::array kSystemRows{
    row<&F::systemName, kFreeText>("SYS.NAME.1", "System1", {.label = 8041, .group = kSystem, .help = 8241}),
    row<&F::systemPlatforms, kFreeText>("SYS.PLATS.1", "", {.label = 8042, .group = kSystem, .help = 8242, .rule = CheckPlatforms}),
};

template <std::size_t P>
consteval std::array<Row<F>, 1> PointRow() {
    return {row<&F::digitalIO, kFixed10, P>(kStem<"DIO.", static_cast<int>(P) + 1>, "OFF", {.list = "SJ.DIO", .label = 8051 + static_cast<int>(P), .group = kDigital, .help = 8251, .unknown = Unknown::Initial})};
}

constexpr std::array kRest{
    Number<&F::analogSource>("ALG.SOURCE", "0", {.label = 8061, .group = kAnalog, .help = 8261}),
    // The ranges are offered; a weight stands here as well.
    row<&F::analogFullScale, kFreeText>("ALG.FULLSC", "", {.list = "SJ.ALG.RANGE", .offered = true, .label = 8062, .group = kAnalog, .help = 8262}),
    Switch<&F::cellBalance>("DIAG.CELLBAL", {.label = 8071, .group = kBalance, .help = 8271}),
    Percent<&F::cbTolerance>("DIAG.CB.%TOLR", "10", {.label = 8072, .group = kBalance, .help = 8272}),
    Number<&F::cbThreshold>("DIAG.CB.THRH", "0", {.label = 8073, .group = kBalance, .help = 8273}),
    Number<&F::cbLoad>("DIAG.CB.LOAD", "0", {.label = 8074, .group = kBalance, .help = 8274}),
    Switch<&F::loadDrift>("DIAG.LDRIFT", {.label = 8075, .group = kDrift, .help = 8275}),
    Percent<&F::ldPLimit>("DIAG.LD.%LIMIT", "10", {.label = 8076, .group = kDrift, .help = 8276}),
    Number<&F::ldLimit>("DIAG.LD.LIMIT", "0", {.label = 8077, .group = kDrift, .help = 8277}),
    Number<&F::ldTime>("DIAG.LD.TIME", "60", {.label = 8078, .group = kDrift, .help = 8278}),
    Number<&F::ldLoad>("DIAG.LD.LOAD", "0", {.label = 8079, .group = kDrift, .help = 8279}),
    Switch<&F::peakToPeak>("DIAG.PKTOPK", {.label = 8080, .group = kPeak, .help = 8280}),
    Number<&F::pkLimit>("DIAG.PK.LIMIT", "0", {.label = 8081, .group = kPeak, .help = 8281}),
    Switch<&F::zeroReference>("DIAG.ZEROREF", {.label = 8082, .group = kZero, .help = 8282}),
    Number<&F::zrThreshold>("DIAG.ZR.THRH", "0", {.label = 8083, .group = kZero, .help = 8283}),
    Number<&F::zrDelay>("DIAG.ZR.DELAY", "60", {.label = 8084, .group = kZero, .help = 8284}),
    Percent<&F::zrPThreshold>("DIAG.ZR.%THRH", "10", {.label = 8085, .group = kZero, .help = 8285}),
    Number<&F::motionBand>("DIAG.MOTBAND", "1", {.label = 8086, .group = kOther, .help = 8286}),
    row<&F::cellEmuType, kFixed10>("DIAG.CE.TYPE", "MANUAL1", {.list = "SJ.DIAG.CE.TYPE", .label = 8087, .group = kOther, .help = 8287, .unknown = Unknown::Initial}),
    row<&F::temperatureCompensation, kFixed10>("DIAG.TEMPCOMP", "", {.list = "SJ.DIAG.TEMPCOMP", .label = 8088, .group = kOther, .help = 8288}),
};
// clang-format on

template <std::size_t... C>
consteval auto AllCells(std::index_sequence<C...>) {
    return JoinRows(CellRows<C>()...);
}
template <std::size_t... P>
consteval auto AllPlatforms(std::index_sequence<P...>) {
    return JoinRows(PlatformRows<P>()...);
}
template <std::size_t... P>
consteval auto AllPoints(std::index_sequence<P...>) {
    return JoinRows(PointRow<P>()...);
}
constexpr auto kRows = JoinRows(kHead, AllCells(std::make_index_sequence<F::kCells>()),
                                AllPlatforms(std::make_index_sequence<F::kPlatforms>()), kSystemRows,
                                AllPoints(std::make_index_sequence<F::kPoints>()), kRest);
constexpr Lines lines{kRows};

// The lines stand in the order of the rows; what differs are the gates.
template <int Platform>
consteval auto PlatformLines() {
    return Join(lines.Run<16>(kStem<"PLAT.NAME.", Platform>),
                Gated(Since("2.05."), lines(kStem<"PLAT.CALMULT.", Platform>)));
}
constexpr auto kLayout =
    Gated(Since("2.00."),  // firmware 1 knows no junction boxes
          Join(lines.Run<3 + 6 * F::kCells>("CONFIG"), PlatformLines<1>(), PlatformLines<2>(),
               PlatformLines<3>(), PlatformLines<4>(), lines.Run<28>("SYS.NAME.1"),
               Gated(Since("2.01."), lines("DIAG.CE.TYPE")), Gated(Since("2.03."), lines("DIAG.TEMPCOMP"))));

}  // namespace

constexpr RowTable<BoxFields> kBoxTable{.rows = kRows,
                                        .layout = [](const F&) { return Layout<F>(kLayout); },
                                        .prefix = "SJ.",
                                        .title = kTitle,
                                        .startOver = true};

}  // namespace calyx
