#include "ui/window/places.h"

#include <algorithm>
#include <array>

#include "model/language/text.h"
#include "ui/database/database_texts.h"
#include "ui/prompts/prompts_texts.h"
#include "ui/texts.h"

namespace calyx::ui {

namespace {

using namespace std::string_view_literals;

constexpr std::array kDatabaseKeys{"DB."sv};
constexpr std::array kSoftKeys{"SOFTKEY"sv};
constexpr std::array kIndustrialKeys{"INDMODE."sv};
constexpr std::array kPortKeys{"EDP."sv, "STR."sv};
constexpr std::array kPortKinds{4100};
constexpr std::array kPortColumns{"ALIAS"sv, "INPUT"sv, "BAUD"sv, "STREAM"sv, "SOURCE"sv};
constexpr std::array kAnalogKeys{"ALG."sv};
constexpr std::array kAnalogKinds{4510};
constexpr std::array kAnalogColumns{"ALIAS"sv, "SOURCE"sv, "MODE"sv, "MIN"sv, "MAX"sv};
constexpr std::array kDigitalKeys{"DIO."sv};
constexpr std::array kScaleKinds{3100};
constexpr std::array kScaleColumns{"ALIAS"sv, "KIND"sv, "SRC"sv, "PRI.UNITS"sv, "GRADS"sv};
constexpr std::array kBoxKinds{8100};
constexpr std::array kBoxColumns{"SYS.NAME.1"sv, "CONFIG"sv, "SECT_TYPE"sv};
constexpr std::array kSetpointKinds{3500};
constexpr std::array kSetpointColumns{"ALIAS"sv, "KIND"sv,  "SOURCE"sv, "VALUE"sv,
                                      "BATCH"sv, "DSLOT"sv, "DIGOUT"sv};
// One kind a ticket: each has a name of its own.
constexpr auto kTicketKinds = [] {
    std::array<int, 31> kinds{};
    for (std::size_t i = 0; i < kinds.size(); ++i) kinds[i] = 5001 + static_cast<int>(i);
    return kinds;
}();
constexpr std::array kTicketColumns{"FMT"sv, "PORT"sv};
constexpr std::array kFieldbusKinds{4560};
constexpr std::array kFieldbusColumns{"SIZE"sv, "BYTESWAP"sv};

constexpr Place kConfiguration[] = {
    {"general", 2100, IconName::General},
    {"hardware", 2121, IconName::Hardware, {}, {}, {}, 0, PlaceLook::Board},
    {"hardware", say::kPorts, IconName::Ports, kPortKeys, kPortKinds, kPortColumns},
    {"hardware", say::kDigital, IconName::Digital, kDigitalKeys, {}, {}, 0, PlaceLook::DigitalPoints},
};
constexpr Place kWeighing[] = {
    {"scales", 2122, IconName::Scales, {}, kScaleKinds, kScaleColumns},
    {"junctionboxes", 2127, IconName::Boxes, {}, kBoxKinds, kBoxColumns, say::kForBoxes},
    {"setpoints", 2125, IconName::Setpoints, {}, kSetpointKinds, kSetpointColumns},
};
constexpr Place kOutput[] = {
    {"tickets", 2123, IconName::Tickets, {}, kTicketKinds, kTicketColumns},
    {"widgets", 2124, IconName::Screens},
    {"hardware", say::kAnalog, IconName::Analog, kAnalogKeys, kAnalogKinds, kAnalogColumns, say::kNoAnalog},
    {"fieldbuscards", 2128, IconName::Fieldbus, {}, kFieldbusKinds, kFieldbusColumns, say::kNoFieldbus},
};
constexpr Place kOperator[] = {
    {"prompts", 2120, IconName::Prompts},
    {"general", prompts_text::kSoftKeys, IconName::SoftKeys, kSoftKeys, {}, {}, 0, PlaceLook::SoftKeys},
    {"general", prompts_text::kIndustrialMode, IconName::Lock, kIndustrialKeys},
    {"hardware", database_text::kTitle, IconName::Database, kDatabaseKeys, {}, {}, 0, PlaceLook::Database},
    {"customparms", 2126, IconName::Custom},
};
constexpr PlaceGroup kGroups[] = {
    {say::kGroupConfiguration, kConfiguration},
    {say::kGroupWeighing, kWeighing},
    {say::kGroupOutput, kOutput},
    {say::kGroupOperator, kOperator},
};
static_assert(std::size(kGroups) <= kMostGroups);

bool BeginsWithOne(std::string_view key, std::span<const std::string_view> starts) {
    return std::any_of(starts.begin(), starts.end(),
                       [key](std::string_view start) { return StartsNoCase(key, start); });
}

}  // namespace

std::span<const PlaceGroup> PlaceGroups() {
    return kGroups;
}

const std::vector<const Place*>& AllPlaces() {
    static const auto places = [] {
        std::vector<const Place*> all;
        for (const PlaceGroup& group : kGroups) {
            for (const Place& place : group.places) all.push_back(&place);
        }
        return all;
    }();
    return places;
}

bool Holds(const Place& place, std::string_view key) {
    if (!place.starts.empty()) return BeginsWithOne(key, place.starts);
    const auto& places = AllPlaces();
    return std::none_of(places.begin(), places.end(), [&](const Place* other) {
        return other->section == place.section && BeginsWithOne(key, other->starts);
    });
}

const Place* PlaceOf(CIndicator& document, std::string_view key) {
    const Section* owner = document.OwnerOf(key);
    if (owner == nullptr) return nullptr;
    for (const Place* place : AllPlaces()) {
        if (place->section == owner->Name() && Holds(*place, key)) return place;
    }
    return nullptr;
}

}  // namespace calyx::ui
