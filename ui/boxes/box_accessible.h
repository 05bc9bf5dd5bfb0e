#pragma once

namespace calyx::ui {

class ctlBoxPicture;

// For screen readers the picture has its parts as children: what each is, where it belongs and whether it is
// chosen.
void InstallBoxAccess();
// The part that keys act on is another one.
void TellBoxFocus(ctlBoxPicture& picture);

}  // namespace calyx::ui
