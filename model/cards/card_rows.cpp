#include "model/cards/card_fields.h"
#include "model/language/text_list.h"
#include "model/validation/validate.h"

namespace calyx {

namespace alias {

int Check(std::string_view value) {
    constexpr int kBadAlias = 2192;
    return value.empty() || modValidate::ValidateAlias(value) ? 0 : kBadAlias;
}

}  // namespace alias

namespace {

using A = AnalogFields;
using B = FieldbusFields;

constexpr int kOutput = 4520, kRange = 4521, kTrim = 4522;  // headings of an analog output
constexpr int kExchange = 4525;                             // and of a fieldbus card
constexpr int kAnalogTitle = 4510, kFieldbusTitle = 4560;

constexpr std::string_view kScale = "SCALE", kProgram = "PROG";

// "SCALE3", or "PROG" for a Scrivo program; a bare number is the scale's.
inline constexpr Codec<std::int32_t> kSource{ValueKind::Integer, 10,
                                             [](std::string& out, const std::int32_t& value, const Target&) {
                                                 out += value == 0 ? kProgram : kScale;
                                                 if (value != 0) AppendInteger(out, value);
                                             },
                                             [](std::int32_t& value, std::string_view text) {
                                                 text = Trim(text);
                                                 if (text == kProgram) {
                                                     value = 0;
                                                     return Taken::Whole;
                                                 }
                                                 if (text.starts_with(kScale))
                                                     text.remove_prefix(kScale.size());
                                                 return kInteger.take(value, text);
                                             }};

// Firmware before 3.09 knew only yes and no, and takes that form with the CB2 flag, too. A version that this
// program does not know is a newer one.
constexpr Gate kYesOrNo{KnownBit("3.09.") - 1};
inline constexpr Codec<FixedText<10>> kSwap{
    ValueKind::Text, 10,
    [](std::string& out, const FixedText<10>& value, const Target& target) {
        if (target.all || !target.Knows(kYesOrNo)) {
            out += value.Trimmed();
        } else {
            out += value.Trimmed() == "NONE" ? "NO" : "YES";
        }
    },
    kFixed10.take};

std::string_view SwapWord(std::string_view word, const CTextList& list) {
    if (Trim(word) == "NO") return "NONE";
    if (Trim(word) != "YES") return word;
    for (const auto& entry : list) {
        if (entry.key != "NONE") return entry.key;
    }
    return word;
}

// One row a line, as a table.
// clang-format off
constexpr Row<A> kAnalogRows[] = {
    row<&A::alias, kFixed8>("ALIAS", "", {.label = 4501, .group = kOutput, .help = 4541, .rule = alias::Check}),
    row<&A::source, kSource>("SOURCE", "PROG", {.label = 4502, .group = kOutput, .help = 4542, .min = 0, .max = 32}),
    row<&A::mode, kFixed10>("MODE", "GROSS", {.list = "ALG.SOURCES", .label = 4503, .group = kOutput, .help = 4543, .unknown = Unknown::Initial}),
    row<&A::offset, kFixed10>("OFFSET", "0%", {.list = "ALG.OFFSETS", .label = 4504, .group = kOutput, .help = 4544, .unknown = Unknown::Initial}),
    row<&A::errorAction, kFixed10>("ERRACT", "ZEROSC", {.list = "ALG.ERRACTS", .label = 4505, .group = kOutput, .help = 4545, .unknown = Unknown::Initial}),
    row<&A::minimum, kInteger>("MIN", "0", {.label = 4506, .group = kRange, .help = 4546}),
    row<&A::maximum, kInteger>("MAX", "10000", {.label = 4507, .group = kRange, .help = 4547}),
    row<&A::minNeg, kFixed10>("MINNEG", "OFF", {.list = "ALG.MINNEG", .label = 4508, .group = kRange, .help = 4548, .unknown = Unknown::Initial}),
    row<&A::maxNeg, kFixed10>("MAXNEG", "OFF", {.list = "ALG.MAXNEG", .label = 4509, .group = kRange, .help = 4549, .unknown = Unknown::Initial}),
    row<&A::zeroCal, kInteger>("ZERO", "40", {.label = 4511, .group = kTrim, .help = 4551, .unit = "counts"}),
    row<&A::spanCal, kInteger>("SPAN", "59650", {.label = 4512, .group = kTrim, .help = 4552, .unit = "counts"}),
};
constexpr Row<B> kFieldbusRows[] = {
    row<&B::size, kInteger>("SIZE", "8", {.label = 4561, .group = kExchange, .help = 4571, .unit = "bytes"}),
    row<&B::swapByte, kSwap>("BYTESWAP", "NONE", {.list = "FB.BYTESWAP", .label = 4562, .group = kExchange, .help = 4572, .unknown = Unknown::Initial, .older = SwapWord}),
};
// clang-format on

constexpr Lines analogLines{kAnalogRows};
bool IsTrimmed(const A& fields) {
    return fields.zeroCal != 0 && fields.spanCal != 0;
}
constexpr auto kAnalogLayout = Join(analogLines("ALIAS", "SOURCE", "MODE", "OFFSET", "ERRACT", "MIN", "MAX"),
                                    Gated(Since("3.08."), analogLines("MINNEG", "MAXNEG")),
                                    When(IsTrimmed, analogLines("ZERO", "SPAN")));

constexpr Lines fieldbusLines{kFieldbusRows};
constexpr auto kFieldbusLayout = Gated(Since("3.07."), fieldbusLines("SIZE", "BYTESWAP"));

}  // namespace

constexpr RowTable<AnalogFields> kAnalogTable{.rows = kAnalogRows,
                                              .layout = [](const A&) { return Layout<A>(kAnalogLayout); },
                                              .prefix = "ALG.",
                                              .title = kAnalogTitle};
constexpr RowTable<FieldbusFields> kFieldbusTable{
    .rows = kFieldbusRows,
    .layout = [](const B&) { return Layout<B>(kFieldbusLayout); },
    .prefix = "FB.",
    .title = kFieldbusTitle};

}  // namespace calyx
