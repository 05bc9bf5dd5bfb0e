#pragma once

#include <string>

namespace calyx::ui {

// Which item of a section is meant.
struct ItemRef {
    std::string section;
    int kind = 0;    // its title's resource text; 0: any of that number
    int number = 0;  // 1-based; 0: the section has no numbered items
    friend bool operator==(const ItemRef&, const ItemRef&) = default;
};

}  // namespace calyx::ui
