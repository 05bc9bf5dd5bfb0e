#include "model/cards/analog_out.h"

#include "model/cards/card_types.h"
#include "model/validation/validate.h"

namespace calyx {

void CAnalogOut::Initialize(int channel) {
    if (channel < 1 || channel > 2 * card::kSlots) {
        Fail(code::kOutOfRange, "Initialize", {std::to_string(channel), "1 to 28"});
    }
    Begin(channel, "#" + std::to_string(channel));
}

int CAnalogOut::Position() const {
    Need("Position");
    return Number() > card::kSlots ? Number() - card::kSlots : Number();
}

void CAnalogOut::SetAlias(std::string_view alias) {
    AnalogFields& fields = Fields("Alias");
    if (alias.size() > 8) Fail(code::kTextTooLong, "Alias");
    if (!alias.empty() && !modValidate::ValidateAlias(alias)) Fail(code::kAliasRefused, "Alias");
    fields.alias.Assign(alias);
}

std::string CAnalogOut::GetIWriteImportDef() const {
    Need("GetIWriteImportDef");
    const auto alias = Values().alias.Trimmed();
    if (alias.empty()) return {};
    return std::string(alias) + " : constant integer := " + std::to_string(Number()) + ";\r\n";
}

}  // namespace calyx
