#include <utility>

#include "model/cards/card_fields.h"

namespace calyx {

namespace {

using F = DigitalFields;

constexpr int kPointsHeading = 4523, kNamesHeading = 4524;
constexpr int kBoardTitle = 4515, kCardTitle = 4516;
constexpr int kDefinitionLabels = 4700, kAliasLabels = 4730;  // + point
constexpr int kDefinitionHelp = 4553, kAliasHelp = 4554;

template <int Point>
consteval std::array<Row<F>, 2> PointRows() {
    return {row<&F::definition, kFixed10, Point - 1>(kStem<"", Point>, "",
                                                     {.list = "DIO.POINTS",
                                                      .label = kDefinitionLabels + Point,
                                                      .group = kPointsHeading,
                                                      .help = kDefinitionHelp}),
            row<&F::alias, kFixed8, Point - 1>(kStem<"ALIAS.", Point>, "",
                                               {.label = kAliasLabels + Point,
                                                .group = kNamesHeading,
                                                .help = kAliasHelp,
                                                .rule = alias::Check})};
}

template <int... Point>
consteval auto AllRows(std::integer_sequence<int, Point...>) {
    return JoinRows(PointRows<Point + 1>()...);
}

constexpr auto kBoardRows = AllRows(std::make_integer_sequence<int, F::kBoardPoints>());
constexpr auto kCardRows = AllRows(std::make_integer_sequence<int, F::kCardPoints>());
constexpr auto kBoardLayout = Lines{kBoardRows}.Run<kBoardRows.size()>("1");
constexpr auto kCardLayout = Lines{kCardRows}.Run<kCardRows.size()>("1");

}  // namespace

constexpr RowTable<DigitalFields> kBoardDigitalTable{
    .rows = kBoardRows,
    .layout = [](const F&) { return Layout<F>(kBoardLayout); },
    .prefix = "DIO.",
    .title = kBoardTitle};
constexpr RowTable<DigitalFields> kCardDigitalTable{.rows = kCardRows,
                                                    .layout = [](const F&) { return Layout<F>(kCardLayout); },
                                                    .prefix = "DIO.",
                                                    .title = kCardTitle};

}  // namespace calyx
