#pragma once

#include "comm/clock.h"

namespace calyx::ui {

// The link's clock in the desktop program: while the link waits, the window's messages run.
class UiClock final : public SteadyClock {
  public:
    void LetOthersRun() override;
};

}  // namespace calyx::ui
