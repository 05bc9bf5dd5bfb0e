#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "model/database/memory_card.h"
#include "ui/document_session.h"

namespace calyx::ui {

// What is done to a copy of the memory card in a slot, as one step of undo. False: nothing changed.
bool EditCard(DocumentSession& session, int slot, const std::string& step,
              const std::function<void(CMemoryCard& card)>& act);

// "Field3": the first such name that no field has.
std::string FreeFieldName(const std::vector<SchemaField>& fields);
// The same for tables of a card: "Table2".
std::string FreeTableName(const CMemoryCard& card);
// How many tables lines of text hold.
int TablesIn(std::string_view lines);

}  // namespace calyx::ui
