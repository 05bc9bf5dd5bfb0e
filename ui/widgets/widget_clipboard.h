#pragma once

#include <string>
#include <string_view>

namespace calyx::ui {

// Widgets on the clipboard, as parameter lines: in the format "CalyxWidget", and as text for a letter.
void CopyWidgets(std::string_view lines);
// The lines that were copied here or in another Calyx, or whatever text there is.
std::string CopiedWidgets();

}  // namespace calyx::ui
