#include <utility>

#include "model/database/schema_fields.h"
#include "model/validation/validate.h"

namespace calyx {

int SchemaFields::FieldCount() const {
    int count = kMostFields;
    while (count > 0 && fieldName[static_cast<std::size_t>(count - 1)].Trimmed().empty()) --count;
    return count;
}

namespace {

using F = SchemaFields;

constexpr int kTitle = 6520;                // of a table, {1} its number
constexpr int kTable = 6521, kList = 6522;  // headings
constexpr int kBadName = 6701;              // {1} label, {2} value

// The names are declared in the program.
int CheckName(std::string_view name) {
    return modValidate::ValidateAlias(name) ? 0 : kBadName;
}
// Fields without a name are told of by the table.
int CheckFieldName(std::string_view name) {
    return name.empty() ? 0 : CheckName(name);
}

constexpr std::array kHead{
    row<&F::name, kFixed8>("NAME", "", {.label = 6501, .group = kTable, .help = 6511, .rule = CheckName})};

// clang-format off
template <std::size_t I>
consteval std::array<Row<F>, 3> FieldRows() {
    constexpr int n = static_cast<int>(I) + 1;
    return {
        row<&F::fieldName, kFixed8, I>(kStem<"FIELD.", n>, "", {.label = 6502, .group = kList, .help = 6512, .rule = CheckFieldName}),
        row<&F::fieldType, kFixed10, I>(kStem<"TYPE.", n>, "", {.list = "DB.TYPES", .label = 6503, .group = kList, .help = 6513}),
        row<&F::keyed, kExactlyOn, I>(kStem<"KEYED.", n>, "OFF", {.label = 6504, .group = kList, .help = 6514}),
    };
}
// clang-format on
using AllFields = std::make_index_sequence<F::kMostFields>;

template <std::size_t... I>
consteval auto Rows(std::index_sequence<I...>) {
    return JoinRows(kHead, FieldRows<I>()...);
}
constexpr auto kRows = Rows(AllFields());
constexpr Lines lines{kRows};

template <std::size_t I>
bool HasField(const F& fields) {
    return static_cast<int>(I) < fields.FieldCount();
}
template <std::size_t... I>
consteval auto FieldLines(std::index_sequence<I...>) {
    return Join(lines("NAME"), When(HasField<I>, lines.Run<3>(kStem<"FIELD.", static_cast<int>(I) + 1>))...);
}
constexpr auto kLayout = FieldLines(AllFields());

}  // namespace

constexpr RowTable<SchemaFields> kSchemaTable{.rows = kRows,
                                              .layout = [](const F&) { return Layout<F>(kLayout); },
                                              .prefix = "DB.",
                                              .title = kTitle,
                                              .startOver = true};

}  // namespace calyx
