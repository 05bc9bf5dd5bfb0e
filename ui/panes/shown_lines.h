#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "model/document/indicator.h"
#include "ui/form/item_ref.h"
#include "ui/window/places.h"

namespace calyx::ui {

// One line of the lines pane.
struct ShownLine {
    std::string key;
    std::string value;  // as the target gets it, where it gets it
    bool changed = false;
    bool sent = true;
    Gate gate;  // the versions that get it, where it is not sent for that reason; else ungated
    friend bool operator==(const ShownLine&, const ShownLine&) = default;
};

// The lines of a place in file order. With the target "everything" they are those of the file; with
// another one each says whether a download sends it. `saved` are the lines of the last save.
// With an item only its lines.
std::vector<ShownLine> LinesOfPlace(const CIndicator& document, const Place& place,
                                    const std::optional<ItemRef>& item, const Target& target,
                                    const std::vector<KeyValue>& saved);

}  // namespace calyx::ui
