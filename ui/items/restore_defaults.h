#pragma once

#include "ui/dialogs/dialogs.h"
#include "ui/document_session.h"
#include "ui/form/item_ref.h"
#include "ui/window/places.h"

namespace calyx::ui {

// Gives all parameters that an item has at a place their initial values, as one step, and asks before
// settings are lost. A port gets those of its own ReloadDefaults.
void RestoreDefaults(DocumentSession& session, const std::function<int(const Question& question)>& ask,
                     const ItemRef& item, const Place& place);

}  // namespace calyx::ui
