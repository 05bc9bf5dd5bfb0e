#pragma once

namespace calyx::ui {

class ctlScreen;

// For screen readers the screen has its widgets as children, in their order: what each is, where it stands
// and whether it is chosen.
void InstallScreenAccess();
// The widget that keys act on is another one.
void TellFocus(ctlScreen& screen);

}  // namespace calyx::ui
