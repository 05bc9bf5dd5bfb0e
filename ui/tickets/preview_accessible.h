#pragma once

namespace calyx::ui {

class TicketCanvas;

// For screen readers the preview has its lines as children.
void InstallPreviewAccess();
// What it shows is another ticket.
void TellPreview(TicketCanvas& canvas);

}  // namespace calyx::ui
