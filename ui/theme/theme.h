#pragma once

#include <QApplication>
#include <QFont>

#include "ui/theme/tokens.h"

namespace calyx::ui {

enum class Theme { System, Light, Dark, HighContrast };

// Fusion with our own palette and measures on every platform. May be called again at any time; open
// windows follow. System is light or dark as the platform's own palette is; the answer is what was
// taken. `make`: the style over ours, for borders of a width in pixels; nothing: ours.
using StyleMaker = QStyle* (*)(int stroke);
Theme ApplyTheme(QApplication& application, Theme theme, StyleMaker make = nullptr);

// One family, the system's, in three sizes; headings of pages are the largest.
enum class TextSize { Small, Body, Heading };
QFont TextFont(TextSize size);
QFont StrongFont();  // of the body's size, for headings inside a page
// For codes and parameter lines.
QFont FixedFont();
// The body font when its figures are all of one width, as they must be in tables; else the fixed one.
QFont FiguresFont();

}  // namespace calyx::ui
