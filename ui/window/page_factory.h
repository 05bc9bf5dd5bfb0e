#pragma once

#include <QWidget>
#include <functional>
#include <optional>
#include <set>
#include <string>

#include "app/settings.h"
#include "model/tickets/ticket_tokens.h"
#include "ui/dialogs/dialogs.h"
#include "ui/document_session.h"
#include "ui/form/item_ref.h"
#include "ui/window/places.h"

namespace calyx::ui {

// The page of a place, with what the window asks of every page.
struct Page {
    QWidget* widget = nullptr;
    std::function<bool(const QString& key)> focusKey;  // false: the page has no such field
    // Keys that differ from what the indicator holds; empty: not compared.
    std::function<void(const std::set<std::string>& keys)> setDiffering;
    // The item that the page shows, or whose row is chosen.
    std::function<std::optional<ItemRef>()> shownItem = {};
};

// What a page needs of the program. Outlives the pages.
struct PageTools {
    std::function<int(const Question& question)> ask;                       // place of the button
    std::string streamsFile;                                                // where stream formats are saved
    std::function<QString(const FileQuestion& question)> askOpenFile = {};  // empty: cancelled
    Settings* settings = nullptr;                                           // preferences of pages
    TicketTokens ticketTokens = {};                                         // that the ticket editor offers
};

// What a page asks of the window.
struct PageEvents {
    std::function<void(const QString& key)> keyFocused;
    std::function<void(const QString& key)> showInLines;
    std::function<void(const QString& key)> parameterWanted;
    std::function<void(const std::optional<ItemRef>& item)> itemShown;  // of a collection; nothing: its list
};

// A form made of the section's rows, a list of items for a collection, or an editor of its own.
Page MakePageOf(DocumentSession& session, const Place& place, const PageTools& tools,
                const PageEvents& events);

}  // namespace calyx::ui
