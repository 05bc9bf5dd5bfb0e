#pragma once

#include <span>

class QWidget;

namespace calyx::ui {

// Moves the keyboard focus by one field, through the parts of a window in the order given and round again.
// Within a part the fields follow one another as Qt has them; parts that grew later keep their place so.
// False: the focus is in none of the parts, or nothing else takes it.
bool StepFocus(std::span<QWidget* const> parts, bool next);
// To where the focus last was in the next part that is seen, else to its first field.
void StepPart(std::span<QWidget* const> parts, bool next);

}  // namespace calyx::ui
