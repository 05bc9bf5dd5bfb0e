#include <limits>

#include "model/validation/validate.h"
#include "model/widgets/widget_fields.h"

namespace calyx {

namespace {

using F = WidgetFields;

constexpr int kPlace = 5571, kLook = 5572, kData = 5573;  // headings of the property list
constexpr int kBadName = 5581;                            // {1} label, {2} value
constexpr int kLeast = std::numeric_limits<int>::min(), kMost = std::numeric_limits<int>::max();

int CheckName(std::string_view name) {
    return name.empty() || modValidate::ValidateAlias(name) ? 0 : kBadName;
}

// The leading number of the text, cut to a whole one.
template <int Min, int Max>
inline constexpr Codec<std::int32_t> kWithin{
    ValueKind::Integer, 11, kInteger.write, [](std::int32_t& value, std::string_view text) {
        const auto number = ReadDecimal(text);
        if (!number || number->value <= Min - 1.0 || number->value >= Max + 1.0) return Taken::Not;
        value = static_cast<std::int32_t>(number->value);
        return number->whole && value == number->value ? Taken::Whole : Taken::Part;
    }};

namespace word {
inline constexpr char kYes[] = "1", kNo[] = "2", kYesNo[] = "1 or 2";
}
inline constexpr const auto& kOneTwo = kSwitchWords<word::kYes, word::kNo, word::kYesNo>;

// A comma would end the field of the record.
inline constexpr Codec<FixedText<8>> kName{
    ValueKind::Text, 8, kFixed8.write,
    [](FixedText<8>& value, std::string_view text) {
        return text.find(',') != std::string_view::npos ? Taken::Not : kFixed8.take(value, text);
    },
    "a name without commas"};

// Blanks at the end are no part of it.
inline constexpr Codec<std::string> kCaption{ValueKind::Text, 64, kFreeText.write,
                                             [](std::string& value, std::string_view text) {
                                                 text = TrimRight(text);
                                                 value = TrimRight(text.substr(0, 64));
                                                 return text.size() > 64 ? Taken::Cut : Taken::Whole;
                                             }};

template <auto Member, int Min, int Max>
consteval Row<F> Number(std::string_view stem, std::string_view initial, More more) {
    if (Min != kLeast || Max != kMost) {
        more.min = Min;
        more.max = Max;
    }
    return row<Member, kWithin<Min, Max>>(stem, initial, more);
}

// The rows of the tables. Their order in a table is that of the record's fields.
// clang-format off
constexpr auto kLeft = Number<&F::left, 0, 319>("Left", "0", {.label = 5501, .group = kPlace, .help = 5521, .unit = "px"});
constexpr auto kTop = Number<&F::top, 0, 249>("Top", "0", {.label = 5502, .group = kPlace, .help = 5522, .unit = "px"});
constexpr auto kScreen = Number<&F::screenNumber, 1, kScreens>("ScreenNumber", "1", {.label = 5505, .group = kPlace, .help = 5525});
constexpr auto kNamed = row<&F::name, kName>("Name", "", {.label = 5506, .group = kData, .help = 5526, .rule = CheckName});
constexpr auto kVisible = row<&F::visible, kOneTwo>("Visible", "1", {.list = "WDGT.VISIBLE", .label = 5507, .group = kLook, .help = 5527});
constexpr auto kBorder = Number<&F::borderStyle, kLeast, kMost>("BorderStyle", "0", {.list = "WDGT.BORDER", .offered = true, .label = 5509, .group = kLook, .help = 5529});
constexpr auto kSource = Number<&F::dataSource, kLeast, kMost>("DataSource", "1", {.label = 5517, .group = kData, .help = 5537});
constexpr auto kField = Number<&F::dataField, kLeast, kMost>("DataField", "0", {.label = 5518, .group = kData, .help = 5538});
constexpr auto kSubField = Number<&F::dataSubField, kLeast, kMost>("DataSubField", "0", {.label = 5519, .group = kData, .help = 5539});
consteval Row<F> Width(std::string_view initial) {
    return Number<&F::width, 0, 32767>("Width", initial, {.label = 5503, .group = kPlace, .help = 5523, .unit = "px"});
}
consteval Row<F> Height(std::string_view initial) {
    return Number<&F::height, 0, 32767>("Height", initial, {.label = 5504, .group = kPlace, .help = 5524, .unit = "px"});
}
template <int Most>
consteval Row<F> Style(std::string_view initial, std::string_view list, int help) {
    return Number<&F::style, 0, Most>("Style", initial, {.list = list, .label = 5508, .group = kLook, .help = help});
}

constexpr std::array kScaleRows{
    Style<6>("0", "WDGT.SCALE", 5541),
    Number<&F::numberDisplayed, kLeast, kMost>("NumberDisplayed", "1", {.label = 5514, .group = kData, .help = 5534}),
    kScreen,
};
constexpr std::array kBitmapRows{
    kLeft, kTop, Width("64"), Height("40"), kBorder, Style<3>("0", "WDGT.BITMAP", 5542), kNamed, kVisible, kScreen,
};
constexpr std::array kBargraphRows{
    kLeft, kTop, Width("140"), Height("18"), kBorder, Style<2>("0", "WDGT.BAR", 5543),
    row<&F::graduations, kOneTwo>("Graduations", "1", {.list = "WDGT.GRADUATIONS", .label = 5512, .group = kLook, .help = 5532}),
    Number<&F::orientation, kLeast, kMost>("Orientation", "0", {.list = "WDGT.ORIENTATION", .offered = true, .label = 5513, .group = kLook, .help = 5533}),
    kNamed,
    Number<&F::dataSource, 1, kMost>("DataSource", "1", {.label = 5517, .group = kData, .help = 5537}),
    kField,
    Number<&F::dataSubField, kLeast, 9999999>("DataSubField", "0", {.label = 5519, .group = kData, .help = 5539}),
    kVisible, kScreen,
};
constexpr std::array kLabelRows{
    kLeft, kTop, Width("100"),
    row<&F::caption, kCaption>("Caption", "", {.label = 5515, .group = kLook, .help = 5535}),
    kBorder,
    Number<&F::justification, kLeast, kMost>("Justification", "0", {.list = "WDGT.JUSTIFICATION", .offered = true, .label = 5510, .group = kLook, .help = 5530}),
    Number<&F::fontSize, kLeast, kMost>("FontSize", "3", {.list = "WDGT.FONT", .offered = true, .label = 5511, .group = kLook, .help = 5531}),
    kNamed, kSource, kField, kSubField, kVisible, kScreen,
};
constexpr std::array kNumericRows{
    kLeft, kTop, Width("90"), kBorder,
    Number<&F::justification, 0, 3>("Justification", "0", {.list = "WDGT.JUSTIFICATION", .label = 5510, .group = kLook, .help = 5530}),
    Number<&F::fontSize, 0, 8>("FontSize", "3", {.list = "WDGT.FONT", .label = 5511, .group = kLook, .help = 5531}),
    kNamed, kSource, kField, kSubField, kVisible, kScreen,
};
constexpr std::array kSymbolRows{
    kLeft, kTop, Style<41>("0", "WDGT.SYMBOL", 5546), kNamed, kSource, kField, kSubField, kVisible, kScreen,
};
// clang-format on

// Every row is a line of the property list.
template <const auto& Rows>
inline constexpr auto kAllRows = Lines(Rows).template Run<Rows.size()>(Rows[0].stem);
template <const auto& Rows>
inline constexpr RowTable<F> kTable{
    .rows = Rows, .layout = [](const F&) { return Layout<F>(kAllRows<Rows>); }, .startOver = true};

template <const auto& Rows>
consteval WidgetKindInfo Kind(WidgetKind kind) {
    WidgetKindInfo info{kind, 5550 + static_cast<int>(kind), &kTable<Rows>, -1, -1};
    for (std::size_t i = 0; i < Rows.size(); ++i) {
        if (Rows[i].stem == kTop.stem) info.topRow = static_cast<int>(i);
        if (Rows[i].stem == "Caption") info.captionRow = static_cast<int>(i);
    }
    return info;
}

}  // namespace

constexpr std::array<WidgetKindInfo, 6> kWidgetKinds{
    Kind<kScaleRows>(WidgetKind::Scale),       Kind<kBitmapRows>(WidgetKind::Bitmap),
    Kind<kBargraphRows>(WidgetKind::Bargraph), Kind<kLabelRows>(WidgetKind::Label),
    Kind<kNumericRows>(WidgetKind::Numeric),   Kind<kSymbolRows>(WidgetKind::Symbol)};

}  // namespace calyx
