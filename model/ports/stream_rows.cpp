#include "model/language/text_list.h"
#include "model/ports/port_fields.h"

namespace calyx {

namespace {

using S = StreamFields;

constexpr int kTitle = 4100;  // as the port's: they are shown together
constexpr int kSigns = 4105, kTokens = 4106;

// The sign of a weight: itself, a blank, nothing.
template <char Sign>
inline constexpr Codec<std::int32_t> kPolarity{
    ValueKind::Text, 5,
    [](std::string& out, const std::int32_t& value, const Target&) {
        if (value == 1) out += Sign;
        if (value == 2) out += "SPACE";
        if (value == 3) out += "NONE";
    },
    [](std::int32_t& value, std::string_view text) {
        text = Trim(text);
        if (text.empty()) return Taken::Not;
        value = text.size() == 1 && text[0] == Sign ? 1 : text == "SPACE" ? 2 : 3;
        return Taken::Whole;
    }};

// Written untrimmed, blanks count; an empty token is one blank.
inline constexpr Codec<std::string> kToken{
    ValueKind::Text, S::kTokenWidth,
    [](std::string& out, const std::string& value, const Target&) { out += value; },
    [](std::string& value, std::string_view text) {
        if (text.size() > S::kTokenWidth) return Taken::Not;
        value = text.empty() ? std::string_view(" ") : text;
        return Taken::Whole;
    },
    "1 to 8 characters"};

inline constexpr Codec<std::string> kFormatText{
    ValueKind::Text, S::kFormatWidth,
    [](std::string& out, const std::string& value, const Target&) { out += value; },
    [](std::string& value, std::string_view text) {
        if (text.size() > S::kFormatWidth) return Taken::Not;
        value = text;
        return Taken::Whole;
    },
    "at most 200 characters"};

// clang-format off
constexpr Row<S> kStreamRows[] = {
    row<&S::format, kFormatText>("EDP.SFMT", "<002><P><W7.><U><M><S><CR><LF>", {.label = 4034, .group = kTokens, .help = 4234, .absent = Absent::Initial}),
    row<&S::positive, kPolarity<'+'>>("STR.POS", "SPACE", {.list = "STR.POS", .label = 4021, .group = kSigns, .help = 4221, .unknown = Unknown::Last, .emptyKeeps = true}),
    row<&S::negative, kPolarity<'-'>>("STR.NEG", "-", {.list = "STR.NEG", .label = 4022, .group = kSigns, .help = 4222, .unknown = Unknown::Last, .emptyKeeps = true}),
    row<&S::primary, kToken>("STR.PRI", "L", {.label = 4023, .group = kTokens, .help = 4223, .absent = Absent::Initial}),
    row<&S::secondary, kToken>("STR.SEC", "K", {.label = 4024, .group = kTokens, .help = 4223, .absent = Absent::Initial}),
    row<&S::tertiary, kToken>("STR.TER", "K", {.label = 4025, .group = kTokens, .help = 4223, .absent = Absent::Initial}),
    row<&S::gross, kToken>("STR.GROSS", "G", {.label = 4026, .group = kTokens, .help = 4226, .absent = Absent::Initial}),
    row<&S::net, kToken>("STR.NET", "N", {.label = 4027, .group = kTokens, .help = 4226, .absent = Absent::Initial}),
    row<&S::tare, kToken>("STR.TARE", "T", {.label = 4028, .group = kTokens, .help = 4226, .absent = Absent::Initial}),
    row<&S::motion, kToken>("STR.MOTION", "M", {.label = 4029, .group = kTokens, .help = 4229, .absent = Absent::Initial}),
    row<&S::range, kToken>("STR.RANGE", "O", {.label = 4030, .group = kTokens, .help = 4229, .absent = Absent::Initial}),
    row<&S::ok, kToken>("STR.OK", " ", {.label = 4031, .group = kTokens, .help = 4229, .absent = Absent::Initial}),
    row<&S::invalid, kToken>("STR.INVALID", "I", {.label = 4032, .group = kTokens, .help = 4229, .absent = Absent::Initial}),
    // Looked up without "#" on purpose: a written line is never found and the token comes back as "Z".
    row<&S::coz, kToken>("STR.ZERO", "Z", {.label = 4033, .group = kTokens, .help = 4229, .absent = Absent::Initial, .readAs = "STR.ZERO{n}"}),
};
// clang-format on
constexpr Lines streamLines{kStreamRows};
constexpr auto kStreamLayout =
    streamLines("STR.POS", "STR.NEG", "STR.PRI", "STR.SEC", "STR.TER", "STR.GROSS", "STR.NET", "STR.TARE",
                "STR.MOTION", "STR.RANGE", "STR.OK", "STR.INVALID", "STR.ZERO", "EDP.SFMT");

}  // namespace

constexpr RowTable<StreamFields> kStreamTable{
    .rows = kStreamRows, .layout = [](const S&) { return Layout<S>(kStreamLayout); }, .title = kTitle};

}  // namespace calyx
