#pragma once

#include <QString>

#include "app/context.h"
#include "model/document/indicator.h"

namespace calyx::ui {

// Writes the printed listing with the headings and indents of the settings: as PDF, in their fonts and
// with their footer, where the path ends in ".pdf", else as text. Raises 20002.
void WriteListing(AppContext& app, const CIndicator& document, const QString& heading, const QString& path);

}  // namespace calyx::ui
