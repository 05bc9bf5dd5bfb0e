#include "model/prompts/industrial_mode.h"

namespace calyx {

namespace {

using F = IndustrialModeFields;

constexpr int kGroup = 6220, kLockGroup = 6221;

template <std::size_t Place>
consteval Row<F> Lock(std::string_view stem) {
    constexpr int number = static_cast<int>(Place);
    return row<&F::locked, kExactlyOn, Place>(
        stem, "OFF", {.label = 6203 + number, .group = kLockGroup, .help = 6213 + number});
}

// clang-format off
constexpr Row<F> kRows[] = {
    row<&F::on, kExactlyOn>("ACTIVE", "OFF", {.label = 6201, .group = kGroup, .help = 6211}),
    row<&F::startScreen, kInteger>("SCREEN", "1", {.label = 6202, .group = kGroup, .help = 6212, .min = 1, .max = F::kMostScreen}),
    Lock<0>("LOCK.WEIGH"), Lock<1>("LOCK.PRINT"), Lock<2>("LOCK.ARROWS"),
    Lock<3>("LOCK.DIGITS"), Lock<4>("LOCK.ENTER"), Lock<5>("LOCK.SOFT"),
};
// clang-format on
bool HasContent(const F& fields) {
    return fields.HasContent();
}
constexpr auto kLayout = When(HasContent, Lines{kRows}.Run<std::size(kRows)>("ACTIVE"));

}  // namespace

constexpr RowTable<IndustrialModeFields> kIndustrialModeTable{
    kRows, [](const F&) { return Layout<F>(kLayout); }, "INDMODE."};

}  // namespace calyx
