#pragma once

#include <QString>
#include <string_view>

#include "model/document/indicator.h"

namespace calyx::ui {

// Where a parameter stands, in words: "Scales, Scale 2", "General". Empty for a key of no section.
QString WhereWords(const CIndicator& document, std::string_view key);
// The item alone: "Scale 2". Empty where it has no title.
QString ItemWords(const CIndicator& document, std::string_view key);
// The parameter's caption; empty where it has none.
QString LabelOf(const CIndicator& document, std::string_view key);

}  // namespace calyx::ui
