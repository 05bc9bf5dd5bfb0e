#pragma once

#include <QSize>
#include <QWidget>

namespace calyx::ui {

// The size, as far as the screen of the widget has room for it with a window's frame around.
QSize FitScreen(const QWidget& widget, QSize wanted);

}  // namespace calyx::ui
