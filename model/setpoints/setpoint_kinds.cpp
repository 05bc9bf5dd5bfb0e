#include "model/setpoints/setpoint_kinds.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "model/language/text.h"

namespace calyx {

namespace {

struct KindRow {
    std::string_view command;
    BatchStep step = BatchStep::No;
};
constexpr auto kNo = BatchStep::No, kChosen = BatchStep::Chosen, kStep = BatchStep::Always;

constexpr std::array<KindRow, kLastSetpointKind> kKinds{{
    {"OFF", kNo},        {"GROSS", kChosen},  {"NET", kChosen},  {"-GROSS", kChosen}, {"-NET", kChosen},
    {"ACCUM", kChosen},  {"DIGIN", kChosen},  {"+REL", kChosen}, {"-REL", kChosen},   {"%REL", kChosen},
    {"RESREL", kChosen}, {"WAITSS", kStep},   {"DELAY", kStep},  {"COUNTER", kStep},  {"PAUSE", kStep},
    {"AUTOJOG", kStep},  {"ALWAYS", kStep},   {"COZ", kNo},      {"INMOTON", kNo},    {"INRANGE", kNo},
    {"BATCHPR", kStep},  {"TIMER", kNo},      {"CONCUR", kNo},   {"TOD", kChosen},    {"DELTA", kStep},
    {"AVG", kChosen},    {"CHKWEI", kNo},     {"ROC", kChosen},  {"PLSCNT", kChosen}, {"PLSRAT", kNo},
    {"NEVER", kStep},    {"DINCNT", kChosen},
}};

const KindRow& RowOf(SetpointKind kind) {
    return kKinds.at(static_cast<std::size_t>(kind) - 1);
}

auto FindWord(std::string_view command) {
    const std::string_view word = Trim(command);
    return std::find_if(kKinds.begin(), kKinds.end(),
                        [word](const KindRow& row) { return row.command == word; });
}

}  // namespace

std::string_view CommandOf(SetpointKind kind) {
    return RowOf(kind).command;
}

int FindKindByCommand(std::string_view command) {
    const auto found = FindWord(command);
    return found == kKinds.end() ? kFirstSetpointKind : static_cast<int>(found - kKinds.begin()) + 1;
}

bool IsKindCommand(std::string_view command) {
    return FindWord(command) != kKinds.end();
}

BatchStep BatchStepOf(SetpointKind kind) {
    return RowOf(kind).step;
}

}  // namespace calyx
