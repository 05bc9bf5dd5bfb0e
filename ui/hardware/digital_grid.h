#pragma once

#include "ui/items/ctl_grid_page.h"

namespace calyx::ui {

// The digital points of the main board and of every card: one row a point, with its function, its alias
// and the setpoints that use it. `toHardware` goes to the page where cards are put in.
ctlGridPage* MakeDigitalPage(DocumentSession& session, const std::function<void()>& toHardware);

}  // namespace calyx::ui
