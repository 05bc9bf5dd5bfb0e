#include "model/tickets/ticket_fields.h"

namespace calyx {

namespace {

using F = TicketFields;

constexpr int kTitles = 5000;                         // + number of the format: its name
constexpr int kTextGroup = 5050, kPrintGroup = 5051;  // headings of the editor page

enum class Parts { All, Text, Port };

// What is particular to a format.
struct Kind {
    std::string_view keys;  // start of its keys; with one part only, the key of its line
    std::string_view text = {};
    std::string_view fallback = {};  // what a text that is too long is read as
    Gate gate = {};
    Parts parts = Parts::All;
    std::string_view port = "PORT3", lines = "40", chars = "40", printer = "2";
};

constexpr std::string_view kGross = "GROSS<G><NL2><TD><NL>";
constexpr std::string_view kNet = "GROSS<G><NL>TARE<SP><T><NL>NET<SP2><N><NL2><TD><NL>";
constexpr std::string_view kTruckIn = "<NL>ID<SP><TID><NL2>GROSS<TR1><NL2><DA><SP><TI><NL>";
constexpr std::string_view kTruckOut =
    "<NL6>ID<SP><TID><NL2>GROSS<TR1><NL>TARE<SP><TR2><NL>NET<SP2><TR3><NL2><TD><NL>";
constexpr std::string_view kSetpoint = "<SCV><SP><SPM><NL>";
constexpr std::string_view kHeader = "COMPANY NAME<NL>STREET ADDRESS<NL>CITY, ST   ZIP<NL2>";
constexpr std::string_view kAlert =
    "<COMP><NL><COAR1><NL><COAR2><NL><COAR3><NL><CONM1> <COPH1><NL><CONM2> <COPH2><NL><CONM3> "
    "<COPH3><NL><COML><NL><ERR><NL>";

// Formats 1 to 10, an auxiliary format, the audit format. Accumulator and truck register fall back to the
// gross text and not to their own: on purpose.
constexpr Kind kKinds[] = {
    {"GFMT.", kGross, kGross},
    {"NFMT.", kNet, kNet},
    {"TRWIN.", kTruckIn, kTruckIn},
    {"TRWOUT.", kTruckOut, kTruckOut},
    {"SPFMT.", kSetpoint, kSetpoint},
    {.keys = "HDRFMT1", .text = kHeader, .fallback = kHeader, .parts = Parts::Text},
    {.keys = "HDRFMT2", .text = kHeader, .fallback = kHeader, .parts = Parts::Text},
    {"ACC.", "ACCUM <A><NL><DA> <TI><NL>", kGross},
    {.keys = "TR.",
     .text = "REG ID: <TID>: <TR2> SCALE <S> <TD><NL>",
     .fallback = kGross,
     .port = "PORT4",
     .lines = "60",
     .chars = "80",
     .printer = "1"},
    {.keys = "ALERT.",
     .text = kAlert,
     .fallback = kAlert,
     .gate = Since("2.00."),
     .port = "PORT2",
     .lines = "60",
     .chars = "80",
     .printer = "1"},
    {"AUXFMT.", kGross, kGross, kManyAuxiliaries},
    {.keys = "AUD.PORT", .gate = kManyAuxiliaries, .parts = Parts::Port},
};
constexpr int kAuxiliary = 10, kAudit = 11;

// Blanks at the end are cut, those in front are part of the text.
template <int K>
constexpr Codec<std::string> kTicketText{
    ValueKind::Text, F::kLongest,
    [](std::string& out, const std::string& value, const Target&) { out += value; },
    [](std::string& value, std::string_view text) {
        text = TrimRight(text);
        const bool fits = text.size() <= F::kLongest;
        value = fits ? text : kKinds[K].fallback;
        return fits ? Taken::Whole : Taken::Not;
    },
    "text of at most 1000 characters"};

Taken TakeWithin(std::int32_t& value, std::string_view text, std::int32_t most) {
    const auto number = ReadInteger(text);
    if (!number || number->value < 1 || number->value > most) return Taken::Not;
    value = number->value;
    return number->whole ? Taken::Whole : Taken::Part;
}
// A number from 1 on; others are passed over.
template <int Most>
consteval Codec<std::int32_t> UpTo(std::string_view words) {
    return {ValueKind::Integer, 11, kInteger.write,
            [](std::int32_t& value, std::string_view text) { return TakeWithin(value, text, Most); }, words};
}
constexpr auto kLinesPerPage = UpTo<F::kMostLines>("a number from 1 to 150");
constexpr auto kCharsPerLine = UpTo<F::kMostChars>("a number from 1 to 132");
constexpr auto kPrinterType = UpTo<F::kPrinterTypes>("a number from 1 to 20");
// "PORT3". A bare number of one or two characters is read too; from five characters on the number counts
// from the fifth, whatever stands before it.
constexpr Codec<std::int32_t> kPort{ValueKind::Integer, 0,
                                    [](std::string& out, const std::int32_t& value, const Target&) {
                                        out += "PORT";
                                        AppendInteger(out, value);
                                    },
                                    [](std::int32_t& value, std::string_view text) {
                                        if (text.size() == 3 || text.size() == 4) return Taken::Not;
                                        if (text.size() > 4) text.remove_prefix(4);
                                        return TakeWithin(value, text, F::kMostPort);
                                    },
                                    "PORT1 to PORT32"};

// clang-format off
template <int K>
consteval Row<F> TextRow(std::string_view stem) {
    return row<&F::text, kTicketText<K>>(stem, kKinds[K].text, {.label = 5061, .group = kTextGroup, .help = 5071});
}
template <int K>
consteval Row<F> PortRow(std::string_view stem) {
    return row<&F::portNumber, kPort>(stem, kKinds[K].port, {.label = 5062, .group = kPrintGroup, .help = 5072, .min = 1, .max = F::kMostPort});
}
template <int K>
consteval auto MakeRows() {
    constexpr Kind kind = kKinds[K];
    if constexpr (kind.parts == Parts::Text) {
        return std::array{TextRow<K>(kind.keys)};
    } else if constexpr (kind.parts == Parts::Port) {
        return std::array{PortRow<K>(kind.keys)};
    } else {
        return std::array{
            TextRow<K>("FMT"),
            PortRow<K>("PORT"),
            row<&F::linesPerPage, kLinesPerPage>("VERT", kind.lines, {.label = 5063, .group = kPrintGroup, .help = 5073, .min = 1, .max = F::kMostLines}),
            row<&F::charsPerLine, kCharsPerLine>("HORZ", kind.chars, {.label = 5064, .group = kPrintGroup, .help = 5074, .min = 1, .max = F::kMostChars}),
            row<&F::printerType, kPrinterType>("PRN", kind.printer, {.list = "TKT.PRINTERS", .offered = true, .label = 5065, .group = kPrintGroup, .help = 5075, .min = 1, .max = F::kPrinterTypes}),
        };
    }
}
// clang-format on
template <int K>
constexpr auto kRows = MakeRows<K>();
template <int K>
constexpr auto kLines = Lines{kRows<K>}.template Run<kRows<K>.size()>(kRows<K>[0].stem);
template <int K>
constexpr auto kLayout = Gated(kKinds[K].gate, kLines<K>);

template <int K>
consteval RowTable<F> Table() {
    constexpr bool full = kKinds[K].parts == Parts::All;
    return {.rows = kRows<K>,
            .layout = [](const F&) { return Layout<F>(kLayout<K>); },
            .prefix = full ? kKinds[K].keys : std::string_view()};
}

// Auxiliary format 1: its numbered keys, and for looking it up its older ones as well.
consteval auto FirstAuxiliaryRows() {
    auto numbered = kRows<kAuxiliary>;
    auto older = kRows<kAuxiliary>;
    constexpr std::array<std::string_view, 5> kStems{"FMT#1", "PORT#1", "VERT#1", "HORZ#1", "PRN#1"};
    for (std::size_t i = 0; i < kStems.size(); ++i) {
        numbered[i].stem = kStems[i];
        older[i].more = {.use = Use::Page};
    }
    return JoinRows(numbered, older);
}
constexpr auto kFirstAuxiliaryRows = FirstAuxiliaryRows();
constexpr auto kFirstAuxiliaryLayout = Lines{kFirstAuxiliaryRows}.Run<5>("FMT#1");

template <std::size_t... K>
consteval auto MakeTables(std::index_sequence<K...>) {
    std::array<RowTable<F>, kTicketFormats> tables{Table<static_cast<int>(K)>()...};
    for (std::size_t i = sizeof...(K); i < tables.size(); ++i) tables[i] = Table<kAuxiliary>();
    tables[kFirstAuxiliary - 1].rows = kFirstAuxiliaryRows;
    tables[kFirstAuxiliary - 1].layout = [](const F&) { return Layout<F>(kFirstAuxiliaryLayout); };
    tables[kAuditFormat - 1] = Table<kAudit>();
    for (std::size_t i = 0; i < tables.size(); ++i) tables[i].title = kTitles + 1 + static_cast<int>(i);
    return tables;
}

}  // namespace

constexpr std::array<RowTable<TicketFields>, kTicketFormats> kTicketTables =
    MakeTables(std::make_index_sequence<kFirstAuxiliary - 1>());
constexpr RowTable<TicketFields> kOlderAuxiliaryTable{
    .rows = kRows<kAuxiliary>,
    .layout = [](const F&) { return Layout<F>(kLines<kAuxiliary>); },
    .prefix = kKinds[kAuxiliary].keys};

std::string_view DefaultTicketText(int format) {
    if (format == kAuditFormat) return {};
    return kKinds[format < kFirstAuxiliary ? format - 1 : kAuxiliary].text;
}

}  // namespace calyx
