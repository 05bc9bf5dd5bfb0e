#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "model/document/indicator.h"
#include "ui/form/item_ref.h"

namespace calyx::ui::form {

// The two words of a switch.
struct SwitchWords {
    std::string on = "ON", off = "OFF";
};

// What the firmware versions of a set get of a parameter. No lines: nothing.
struct FirmwareEffect {
    Gate versions;
    std::vector<KeyValue> lines;
};

// One row of an item as its field sees it. A look at the document, to be taken anew after every change.
class Parameter {
  public:
    Parameter(const Item& item, std::size_t row) : item_(&item), row_(row) {}

    const RowInfo& Info() const { return item_->Info(row_); }
    const CTextList* List() const { return item_->List(row_); }
    std::string Key() const { return item_->Key(row_); }
    std::string Text() const { return item_->Text(row_); }
    std::string DefaultText() const;  // in the form that Text() has
    SwitchWords Words() const;

    // Whether the page shows it. A parameter that the kind has no line for is absent, and so is one whose
    // line's condition is not met; except where the item writes no line at all yet, since an edit is what
    // makes its lines.
    bool IsPresent() const;

    // The lines that hold it: its own, or those that a choice of the page stands for; none for what is
    // only read.
    std::vector<KeyValue> Lines() const;
    Gate Versions() const;                         // in which any of the lines may be written
    std::vector<FirmwareEffect> Firmware() const;  // oldest version first

  private:
    std::vector<std::size_t> LineRows() const;

    const Item* item_;
    std::size_t row_;
};

std::optional<Parameter> FindParameter(const CIndicator& document, std::string_view section,
                                       std::string_view key);

// The keys of all parameters with a group, of all the items that are meant, in table order.
std::vector<std::string> FormKeys(const CIndicator& document, const ItemRef& ref);

}  // namespace calyx::ui::form
