#pragma once

#include <QWidget>
#include <functional>
#include <set>
#include <string>

#include "ui/document_session.h"
#include "ui/window/places.h"

namespace calyx::ui {

// The page of a place, with what the window asks of every page.
struct Page {
    QWidget* widget = nullptr;
    std::function<bool(const QString& key)> focusKey;  // false: the page has no such field
    // Keys that differ from what the indicator holds; empty: not compared.
    std::function<void(const std::set<std::string>& keys)> setDiffering;
};

// What a page asks of the window.
struct PageEvents {
    std::function<void(const QString& key)> keyFocused;
    std::function<void(const QString& key)> showInLines;
    std::function<void()> openWanted;
    std::function<void()> readWanted;
};

// A form made of the section's rows; the kept lines where the section has none.
Page MakePageOf(DocumentSession& session, const Place& place, const PageEvents& events);

}  // namespace calyx::ui
