#include "ui/form/control.h"

#include "ui/form/choice_controls.h"
#include "ui/form/line_controls.h"
#include "ui/form/reference_control.h"

namespace calyx::ui::form {

std::unique_ptr<Control> MakeControl(const Parameter& parameter, const ResourceTexts& texts, QWidget* parent,
                                     const Offers& offers) {
    const RowInfo& info = parameter.Info();
    if (info.more.use == Use::ReadOnly) return std::make_unique<ReadOnlyControl>(parameter, texts, parent);
    if (parameter.List() != nullptr) return std::make_unique<ChoiceControl>(*parameter.List(), parent);
    switch (info.kind) {
        case ValueKind::Integer:
        case ValueKind::Decimal:
            if (offers) return std::make_unique<ReferenceControl>(info, texts, offers, parent);
            return std::make_unique<NumberControl>(info, texts, parent);
        case ValueKind::Switch:
            return std::make_unique<SwitchControl>(parameter.Words(), parent);
        case ValueKind::Date:
            return std::make_unique<DateControl>(texts, parent);
        case ValueKind::Text:
            break;
    }
    return std::make_unique<TextControl>(info, texts, parent);
}

}  // namespace calyx::ui::form
