#pragma once

#include "ui/items/ctl_grid_page.h"

namespace calyx::ui {

// The soft keys in the order of the display, one a row: which key stands at the place and what it does. Rows
// are dragged, or moved with Alt+Up and Alt+Down.
ctlGridPage* MakeSoftKeysPage(DocumentSession& session);

}  // namespace calyx::ui
