#pragma once

#include "ui/items/ctl_grid_page.h"

namespace calyx::ui {

// The operator prompts, one a row: the text, how much of its room it takes, and the setpoints that refer to
// it.
ctlGridPage* MakePromptsPage(DocumentSession& session);

}  // namespace calyx::ui
