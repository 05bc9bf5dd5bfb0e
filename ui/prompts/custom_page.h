#pragma once

#include "ui/items/ctl_grid_page.h"

namespace calyx::ui {

// The custom parameters, one place a row, with name and value. Two columns of a spreadsheet can be pasted,
// and lines such as NAME=VALUE.
ctlGridPage* MakeCustomPage(DocumentSession& session);

}  // namespace calyx::ui
