#pragma once

#include <QString>
#include <vector>

#include "model/language/resource_texts.h"
#include "model/widgets/widgets.h"

namespace calyx::ui {

// What widgets are called on the page, in tool tips and in the steps of undo.
QString KindWords(const ResourceTexts& texts, WidgetKind kind);
// "Label lblA"; without a name "Label #3"; "Scale 2" by the scale that it shows.
QString WidgetWords(const ResourceTexts& texts, const CWidgets& widgets, int number);
// The words of a single one, else "3 widgets".
QString WidgetsWords(const ResourceTexts& texts, const CWidgets& widgets, const std::vector<int>& numbers);
// For screen readers: what it is called, where it stands, whether it is hidden.
QString PlaceWords(const ResourceTexts& texts, const CWidgets& widgets, int number);

}  // namespace calyx::ui
