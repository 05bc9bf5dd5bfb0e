#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "model/document/indicator.h"
#include "ui/theme/icons.h"

namespace calyx::ui {

// How a place is shown, where its items do not say it.
enum class PlaceLook { Rows, Board, DigitalPoints, SoftKeys, Database };

// A place in the navigation: a section, or the part of it whose keys begin with one of the starts.
struct Place {
    std::string_view section;
    int title;  // resource text
    IconName icon;
    std::span<const std::string_view> starts = {};  // empty: what no other place of the section has
    // A collection: the kinds of its items, by the resource texts of their titles, and the stems of the
    // columns that its list has beside the title.
    std::span<const int> kinds = {};
    std::span<const std::string_view> columns = {};
    int empty = 0;  // resource text: what the place is for while it has no items
    PlaceLook look = PlaceLook::Rows;
};

struct PlaceGroup {
    int title;
    std::span<const Place> places;
};

// The navigation, at most seven groups. A section that gets an editor of its own needs nothing here; a
// part of a section that shall have a page of its own gets a line.
std::span<const PlaceGroup> PlaceGroups();
inline constexpr std::size_t kMostGroups = 7;  // as many as there are settings for their state

// All places, in the order of the groups.
const std::vector<const Place*>& AllPlaces();

// Whether a key of the place's section belongs to the place.
bool Holds(const Place& place, std::string_view key);
// Nothing when the document has no such key.
const Place* PlaceOf(CIndicator& document, std::string_view key);

}  // namespace calyx::ui
