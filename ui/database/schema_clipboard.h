#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "model/database/schema.h"

namespace calyx::ui {

// Database tables on the clipboard, as parameter lines: in the format "CalyxSchema", and as text for a
// letter.
void CopySchemas(std::string_view lines);
// The lines that were copied here or in another Calyx, or whatever text there is.
std::string CopiedSchemas();

// Fields as rows of text, name, type and "ON" or "OFF" between tabs, and back. Types are known by their words
// and by what is shown for them; a type that is missing or unknown is text. Nothing for a text whose first
// column is not all names.
std::string FieldsAsText(const std::vector<SchemaField>& fields);
std::vector<SchemaField> FieldsOfText(std::string_view text, const CTextList& types);

}  // namespace calyx::ui
