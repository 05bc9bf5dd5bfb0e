#include "ui/window/places.h"

#include <algorithm>
#include <array>

#include "model/language/text.h"
#include "ui/texts.h"

namespace calyx::ui {

namespace {

using namespace std::string_view_literals;

constexpr std::array kPortKeys{"EDP."sv, "STR."sv};

constexpr Place kConfiguration[] = {
    {"general", 2100, IconName::General},
    {"hardware", 2121, IconName::Hardware},
    {"hardware", say::kPorts, IconName::Ports, kPortKeys},
};
constexpr Place kWeighing[] = {
    {"scales", 2122, IconName::Scales},
    {"junctionboxes", 2127, IconName::Boxes},
    {"setpoints", 2125, IconName::Setpoints},
};
constexpr Place kOutput[] = {
    {"tickets", 2123, IconName::Tickets},
    {"widgets", 2124, IconName::Screens},
    {"fieldbuscards", 2128, IconName::Fieldbus},
};
constexpr Place kOperator[] = {
    {"prompts", 2120, IconName::Prompts},
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
