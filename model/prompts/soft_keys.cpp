#include "model/prompts/soft_keys.h"

#include <algorithm>
#include <string>

namespace calyx {

namespace {

using F = SoftKeyFields;

constexpr std::string_view kNoFunction = "NONE";
constexpr int kFunctionLabels = 6100, kPlaceLabels = 6110;  // + number
constexpr int kFunctionHelp = 6121, kPlaceHelp = 6122, kFunctionGroup = 6123, kPlaceGroup = 6124;
constexpr int kTwoPlaces = 6131;  // {1} soft key, {2} and {3} places

template <std::size_t... Place>
consteval auto FunctionRows(std::index_sequence<Place...>) {
    return std::array{
        row<&F::functions, kFixed10, Place>(kStem<"SOFTKEY#", static_cast<int>(Place) + 1>, kNoFunction,
                                            {.list = "SOFTKEY.KEYS",
                                             .label = kFunctionLabels + 1 + static_cast<int>(Place),
                                             .group = kFunctionGroup,
                                             .help = kFunctionHelp})...};
}
template <std::size_t... Place>
consteval auto PlaceRows(std::index_sequence<Place...>) {
    return std::array{row<&F::order, kInteger, Place>(kStem<"SOFTKEY.ORDER#", static_cast<int>(Place) + 1>,
                                                      kStem<"", static_cast<int>(Place) + 1>,
                                                      {.label = kPlaceLabels + 1 + static_cast<int>(Place),
                                                       .group = kPlaceGroup,
                                                       .help = kPlaceHelp,
                                                       .min = 1,
                                                       .max = F::kCount})...};
}
constexpr auto kPlaces = std::make_index_sequence<F::kCount>();
constexpr auto kRows = JoinRows(FunctionRows(kPlaces), PlaceRows(kPlaces));
bool HasContent(const F& fields) {
    return fields.HasContent();
}
constexpr auto kLayout = When(HasContent, Lines{kRows}.Run<kRows.size()>("SOFTKEY#1"));

}  // namespace

constexpr RowTable<SoftKeyFields> kSoftKeyTable{kRows, [](const F&) { return Layout<F>(kLayout); }};

bool SoftKeyFields::HasContent() const {
    const bool assigned = std::any_of(functions.begin(), functions.end(), [](const auto& function) {
        return !function.Trimmed().empty() && function.Trimmed() != kNoFunction;
    });
    return inFile || assigned || order != SoftKeyFields{}.order;
}

void CheckSoftKeys(const SoftKeyFields& fields, const ModelContext& context, std::string_view section,
                   CBrokenRules& rules) {
    for (std::size_t i = 0; i < fields.order.size(); ++i) {
        const auto* first = std::find(fields.order.begin(), fields.order.begin() + i, fields.order[i]);
        const auto place = static_cast<std::size_t>(first - fields.order.begin());
        if (place == i) continue;
        rules.Add({std::string(section), 0, std::string(kRows[fields.functions.size() + i].stem),
                   context.texts.Format(kTwoPlaces, {std::to_string(fields.order[i]),
                                                     std::to_string(place + 1), std::to_string(i + 1)})});
    }
}

}  // namespace calyx
