#include "model/cards/digital_io.h"

#include <algorithm>

#include "model/cards/card_types.h"
#include "model/language/text_list.h"
#include "model/validation/validate.h"

namespace calyx {

void CDigitalIO::Initialize(int number) {
    if (number < 0 || number > card::kSlots) {
        board_.Fail(code::kOutOfRange, "Initialize", {std::to_string(number), "0 to 14"});
    }
    onBoard_ = number == 0;
    Own().Initialize(number);
}

int CDigitalIO::NumberOfPoints() const {
    Own().Need("NumberOfPoints");
    return onBoard_ ? DigitalFields::kBoardPoints : DigitalFields::kCardPoints;
}

const CTextList& CDigitalIO::PointDefinitions() const {
    Own().Need("PointDefinitions");
    return lists_.PointDefinitions();
}

std::size_t CDigitalIO::Place(int point, const char* operation) const {
    Own().Need(operation);
    if (point < 1 || point > NumberOfPoints()) {
        Own().Fail(code::kOutOfRange, operation,
                   {std::to_string(point), "1 to " + std::to_string(NumberOfPoints())});
    }
    return static_cast<std::size_t>(point - 1);
}

std::string_view CDigitalIO::PointDefinition(int point) const {
    return Values().definition[Place(point, "PointDefinition")].Trimmed();
}

std::string_view CDigitalIO::Alias(int point) const {
    return Values().alias[Place(point, "Alias")].Trimmed();
}

std::string CDigitalIO::PointDefinitionCommand(int point) const {
    const std::size_t row = 2 * Place(point, "PointDefinitionCommand");
    return Parameters().Key(row) + "=" + Parameters().Text(row);
}

void CDigitalIO::SetPointDefinition(int point, std::string_view definition) {
    const std::size_t place = Place(point, "PointDefinition");
    const CTextList& list = PointDefinitions();
    if (!list.ValidateItem(Trim(definition))) {
        Own().Fail(code::kOutOfRange, "PointDefinition", {definition, list.TabDelimitedList()});
    }
    Own().Fields().definition[place].Assign(definition);
}

void CDigitalIO::SetAlias(int point, std::string_view alias) {
    const std::size_t place = Place(point, "Alias");
    if (alias.size() > 8) Own().Fail(code::kTextTooLong, "Alias");
    if (!alias.empty() && !modValidate::ValidateAlias(alias)) Own().Fail(code::kAliasRefused, "Alias");
    Own().Fields().alias[place].Assign(alias);
}

std::string CDigitalIO::GetIWriteImportDef() const {
    const auto constant = [](const std::string& name, int value) {
        return name + " : constant integer := " + std::to_string(value) + ";\r\n";
    };
    Own().Need("GetIWriteImportDef");
    std::string points;
    for (int point = 1; point <= NumberOfPoints(); ++point) {
        const auto& alias = Values().alias[static_cast<std::size_t>(point - 1)];
        if (!alias.Trimmed().empty()) points += constant(FixedText<8>(alias.Trimmed()).Padded(), point);
    }
    if (points.empty()) return {};
    return constant(ConstantOfCard(), Number()) + points;
}

bool CDigitalIO::HasAlias() const {
    const auto& aliases = Values().alias;
    return std::any_of(aliases.begin(), aliases.end(), [](const auto& a) { return !a.Trimmed().empty(); });
}

std::string CDigitalIO::ConstantOfCard() const {
    return "DIOCRD" + std::to_string(Number());
}

}  // namespace calyx
