#pragma once

#include <QStringList>

#include "ui/items/grid_model.h"

namespace calyx::ui {

// The data of a box's load cells, one cell a row.
GridSource CellRows(int port);
QStringList CellHeadings(const DocumentSession& session);

// The data of its platforms, one platform a column.
GridSource PlatformRows(int port);
QStringList PlatformHeadings(const DocumentSession& session);

}  // namespace calyx::ui
