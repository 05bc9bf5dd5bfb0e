#include "ui/window/page_factory.h"

#include <memory>

#include "ui/boxes/ctl_box.h"
#include "ui/boxes/ctl_boxes.h"
#include "ui/database/ctl_database.h"
#include "ui/form/form_page.h"
#include "ui/hardware/ctl_hardware.h"
#include "ui/hardware/ctl_port.h"
#include "ui/hardware/digital_grid.h"
#include "ui/items/ctl_items_page.h"
#include "ui/prompts/custom_page.h"
#include "ui/prompts/prompts_page.h"
#include "ui/prompts/soft_keys_page.h"
#include "ui/scales/ctl_scale.h"
#include "ui/scales/ctl_scale_table.h"
#include "ui/setpoints/ctl_setpoint.h"
#include "ui/setpoints/ctl_setpoint_table.h"
#include "ui/tables/ctl_table_page.h"
#include "ui/tickets/ctl_ticket.h"
#include "ui/tickets/ctl_ticket_table.h"
#include "ui/tickets/ticket_drafts.h"
#include "ui/widgets/ctl_screens.h"

namespace calyx::ui {

namespace {

// Stems of parameters that the section has on pages of their own.
std::vector<std::string> StemsElsewhere(const CIndicator& document, const Place& place) {
    std::vector<std::string> stems;
    for (const Section* section : document.Sections()) {
        if (section->Name() != place.section) continue;
        for (const Item* item : section->Items()) {
            for (std::size_t row = 0; row < item->RowCount(); ++row) {
                if (!Holds(place, item->Key(row))) stems.emplace_back(item->Info(row).stem);
            }
        }
    }
    return stems;
}

Page MakeForm(DocumentSession& session, const ItemRef& item, const PageEvents& events,
              const std::vector<std::string>& leftOut = {}) {
    auto* page = new FormPage(session, item, nullptr, FormPage::kMenuLetters, leftOut);
    QObject::connect(page, &FormPage::KeyFocused, page, events.keyFocused);
    QObject::connect(page, &FormPage::ShowInLines, page, events.showInLines);
    return {page, [page](const QString& key) { return page->FocusKey(key); },
            [page](const std::set<std::string>& keys) { page->SetDiffering(keys); },
            [item] { return std::optional(item); }};
}

Page MakePort(DocumentSession& session, const ItemRef& item, const PageTools& tools,
              const PageEvents& events) {
    auto* page = new ctlPort(session, item, tools);
    QObject::connect(page->Form(), &FormPage::KeyFocused, page, events.keyFocused);
    QObject::connect(page->Form(), &FormPage::ShowInLines, page, events.showInLines);
    return {page, [page](const QString& key) { return page->Form()->FocusKey(key); },
            [page](const std::set<std::string>& keys) { page->Form()->SetDiffering(keys); }};
}

Page MakeScale(DocumentSession& session, const ItemRef& item, const PageTools& tools,
               const PageEvents& events) {
    auto* page = new ctlScale(session, item, tools);
    QObject::connect(page, &ctlScale::KeyFocused, page, events.keyFocused);
    QObject::connect(page, &ctlScale::ParameterWanted, page, events.parameterWanted);
    QObject::connect(page->Form(), &FormPage::KeyFocused, page, events.keyFocused);
    QObject::connect(page->Form(), &FormPage::ShowInLines, page, events.showInLines);
    return {page, [page](const QString& key) { return page->FocusKey(key); },
            [page](const std::set<std::string>& keys) { page->SetDiffering(keys); }};
}

Page MakeSetpoint(DocumentSession& session, const ItemRef& item, const PageTools& tools,
                  const PageEvents& events) {
    auto* page = new ctlSetpoint(session, item, tools);
    QObject::connect(page, &ctlSetpoint::ParameterWanted, page, events.parameterWanted);
    QObject::connect(page->Form(), &FormPage::KeyFocused, page, events.keyFocused);
    QObject::connect(page->Form(), &FormPage::ShowInLines, page, events.showInLines);
    return {page, [page](const QString& key) { return page->Form()->FocusKey(key); },
            [page](const std::set<std::string>& keys) { page->Form()->SetDiffering(keys); }};
}

Page MakeBox(DocumentSession& session, const ItemRef& item, const PageEvents& events) {
    auto* page = new ctlBox(session, item);
    QObject::connect(page, &ctlBox::KeyFocused, page, events.keyFocused);
    QObject::connect(page, &ctlBox::ShowInLines, page, events.showInLines);
    return {page, [page](const QString& key) { return page->FocusKey(key); },
            [page](const std::set<std::string>& keys) { page->SetDiffering(keys); }};
}

Page MakeItem(DocumentSession& session, const ItemRef& item, const PageTools& tools,
              const PageEvents& events) {
    constexpr int kScale = 3100, kSetpoint = 3500, kPort = 4100, kBox = 8100;  // titles of items
    switch (item.kind) {
        case kBox:
            return MakeBox(session, item, events);
        case kScale:
            return MakeScale(session, item, tools, events);
        case kSetpoint:
            return MakeSetpoint(session, item, tools, events);
        case kPort:
            return MakePort(session, item, tools, events);
        default:
            return MakeForm(session, item, events);
    }
}

// A collection with a table of its own instead of the list.
Page MakeTable(ctlItemTable* table, ctlItemsPage* items, const PageEvents& events) {
    auto* page = new ctlTablePage(table, items);
    QObject::connect(page, &ctlTablePage::ItemShown, page, events.itemShown);
    QObject::connect(&table->Grid(), &ctlGrid::KeyFocused, page, events.keyFocused);
    QObject::connect(&table->Grid(), &ctlGrid::ShowInLines, page, events.showInLines);
    return {page, [page](const QString& key) { return page->FocusKey(key); },
            [page](const std::set<std::string>& keys) { page->SetDiffering(keys); }};
}

Page MakeCollection(DocumentSession& session, const Place& place, const PageTools& tools,
                    const PageEvents& events) {
    auto* page = new ctlItemsPage(session, place, [&session, &tools, events](const ItemRef& item) {
        return MakeItem(session, item, tools, events);
    });
    QObject::connect(page, &ctlItemsPage::ParameterWanted, page, events.parameterWanted);
    if (place.section == "scales") return MakeTable(new ctlScaleTable(session), page, events);
    if (place.section == "setpoints") return MakeTable(new ctlSetpointTable(session, tools), page, events);
    QObject::connect(page, &ctlItemsPage::ItemShown, page, events.itemShown);
    QWidget* widget = page;
    if (place.section == "junctionboxes") {
        auto* boxes = new ctlBoxes(session, page);
        QObject::connect(boxes, &ctlBoxes::ParameterWanted, boxes, events.parameterWanted);
        widget = boxes;
    }
    return {widget, [page](const QString& key) { return page->FocusKey(key); },
            [page](const std::set<std::string>& keys) { page->SetDiffering(keys); },
            [page] { return page->Current(); }};
}

Page MakeTicket(DocumentSession& session, const ItemRef& item, const PageTools& tools,
                const PageEvents& events, const std::shared_ptr<TicketDrafts>& drafts) {
    if (item.number == kAuditFormat) return MakeForm(session, item, events);  // has a port alone
    auto* page = new ctlTicket(session, item, tools, drafts);
    QObject::connect(page, &ctlTicket::KeyFocused, page, events.keyFocused);
    QObject::connect(page, &ctlTicket::ShowInLines, page, events.showInLines);
    return {page, [page](const QString& key) { return page->FocusKey(key); },
            [page](const std::set<std::string>& keys) { page->SetDiffering(keys); }};
}

Page MakeTickets(DocumentSession& session, const Place& place, const PageTools& tools,
                 const PageEvents& events) {
    const auto drafts = std::make_shared<TicketDrafts>(session);
    auto* page = new ctlItemsPage(session, place, [&session, &tools, events, drafts](const ItemRef& item) {
        return MakeTicket(session, item, tools, events, drafts);
    });
    return MakeTable(new ctlTicketTable(session), page, events);
}

Page MakeHardware(DocumentSession& session, const PageTools& tools, const PageEvents& events) {
    auto* page = new ctlHardware(session, tools);
    QObject::connect(page, &ctlHardware::KeyFocused, page, events.keyFocused);
    QObject::connect(page, &ctlHardware::ParameterWanted, page, events.parameterWanted);
    return {page, [page](const QString& key) { return page->FocusKey(key); }, [](const auto&) {}};
}

Page MakeGrid(ctlGridPage* page, const PageEvents& events) {
    ctlGrid* grid = &page->Grid();
    QObject::connect(grid, &ctlGrid::KeyFocused, page, events.keyFocused);
    QObject::connect(grid, &ctlGrid::ShowInLines, page, events.showInLines);
    QObject::connect(grid, &ctlGrid::ParameterWanted, page, events.parameterWanted);
    return {page, [grid](const QString& key) { return grid->FocusKey(key); },
            [grid](const std::set<std::string>& keys) { grid->SetDiffering(keys); },
            [grid] { return grid->CurrentItem(); }};
}

Page MakeDatabase(DocumentSession& session, const PageEvents& events) {
    auto* page = new ctlDatabase(session);
    QObject::connect(page, &ctlDatabase::KeyFocused, page, events.keyFocused);
    QObject::connect(page, &ctlDatabase::ShowInLines, page, events.showInLines);
    QObject::connect(page, &ctlDatabase::ParameterWanted, page, events.parameterWanted);
    return {page, [page](const QString& key) { return page->FocusKey(key); },
            [page](const std::set<std::string>& keys) { page->SetDiffering(keys); }};
}

Page MakeScreens(DocumentSession& session, const PageTools& tools, const PageEvents& events) {
    auto* page = new ctlScreens(session, tools);
    QObject::connect(page, &ctlScreens::KeyFocused, page, events.keyFocused);
    return {page, [page](const QString& key) { return page->FocusKey(key); }, [](const auto&) {}};
}

}  // namespace

Page MakePageOf(DocumentSession& session, const Place& place, const PageTools& tools,
                const PageEvents& events) {
    const ItemRef whole{std::string(place.section)};
    if (place.look == PlaceLook::Board) return MakeHardware(session, tools, events);
    if (place.look == PlaceLook::DigitalPoints) {
        const auto toHardware = [events] { events.parameterWanted(QStringLiteral("HARDWARE")); };
        return MakeGrid(MakeDigitalPage(session, toHardware), events);
    }
    if (place.look == PlaceLook::Database) return MakeDatabase(session, events);
    if (place.look == PlaceLook::SoftKeys) return MakeGrid(MakeSoftKeysPage(session), events);
    if (place.section == "prompts") return MakeGrid(MakePromptsPage(session), events);
    if (place.section == "customparms") return MakeGrid(MakeCustomPage(session), events);
    if (place.section == "widgets") return MakeScreens(session, tools, events);
    if (place.section == "tickets") return MakeTickets(session, place, tools, events);
    if (!place.kinds.empty()) return MakeCollection(session, place, tools, events);
    return MakeForm(session, whole, events, StemsElsewhere(std::as_const(session).Document(), place));
}

}  // namespace calyx::ui
