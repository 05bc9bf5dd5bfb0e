#pragma once

#include <QString>

class QWidget;

namespace calyx::ui {

// Prints a page of HTML on a printer that the user chooses.
void PrintPage(QWidget& parent, const QString& name, const QString& html);

}  // namespace calyx::ui
