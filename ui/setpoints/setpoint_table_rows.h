#pragma once

#include <QString>

#include "ui/items/grid_model.h"

namespace calyx::ui {

// What the table of setpoints shows.
struct SetpointFilter {
    QString text;  // somewhere in what the row says, in any case
    int kind = 0;  // 0: all
    bool onlyUsed = false, onlyBatch = false;
    bool batchOrder = false;  // the batch and what runs beside it, in its order
    int stays = 0;            // number that is shown whatever the filter says; 0: none

    bool IsOpen() const { return text.isEmpty() && kind == 0 && !onlyUsed && !onlyBatch && !batchOrder; }
};

// The rows of the setpoints that fit, with the cells of SetpointHeadings.
std::vector<GridRow> SetpointRows(const CIndicator& document, const SetpointFilter& filter);
QStringList SetpointHeadings(const ResourceTexts& texts);

}  // namespace calyx::ui
