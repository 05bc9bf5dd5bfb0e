#pragma once

#include <string>
#include <string_view>

namespace calyx::ui {

// Whole items on the clipboard, as parameter lines. `text`: the lines as the file has them, which paste into
// a letter as well; `own`: the same for this program, with what only it understands.
void CopyItems(std::string_view own, std::string_view text);
// The lines that were copied here, or whatever text there is.
std::string CopiedItems();

}  // namespace calyx::ui
