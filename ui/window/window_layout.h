#pragma once

#include <QAction>
#include <QMainWindow>
#include <QSplitter>

#include "app/settings.h"

namespace calyx::ui {

// Place and size of the window and of its panes, kept in the settings.
struct WindowParts {
    QSplitter* columns;  // navigation, page, lines
    QSplitter* rows;     // columns, panes
    QAction* showLines;
    QAction* showPanes;
};

void KeepLayout(Settings& settings, const QMainWindow& window, const WindowParts& parts);
// What was kept, no larger than the screen; a window that would lie on no screen comes back to the first
// one.
void RestoreLayout(const Settings& settings, QMainWindow& window, const WindowParts& parts);

}  // namespace calyx::ui
