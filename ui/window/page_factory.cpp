#include "ui/window/page_factory.h"

#include "ui/form/form_page.h"
#include "ui/hardware/ctl_hardware.h"
#include "ui/hardware/ctl_port.h"
#include "ui/items/ctl_items_page.h"
#include "ui/scales/ctl_scale.h"
#include "ui/setpoints/ctl_setpoint.h"
#include "ui/window/ctl_kept_page.h"

namespace calyx::ui {

namespace {

Page MakeKept(DocumentSession& session, const Place& place, const PageEvents& events) {
    auto* page = new ctlKeptPage(session, place);
    QObject::connect(page, &ctlKeptPage::KeyFocused, page, events.keyFocused);
    QObject::connect(page, &ctlKeptPage::OpenWanted, page, events.openWanted);
    QObject::connect(page, &ctlKeptPage::ReadWanted, page, events.readWanted);
    return {page, [page](const QString& key) { return page->FocusKey(key); }, [](const auto&) {}};
}

Page MakeForm(DocumentSession& session, const ItemRef& item, const PageEvents& events) {
    FormPage* page = MakePage(session, item);
    QObject::connect(page, &FormPage::KeyFocused, page, events.keyFocused);
    QObject::connect(page, &FormPage::ShowInLines, page, events.showInLines);
    return {page, [page](const QString& key) { return page->FocusKey(key); },
            [page](const std::set<std::string>& keys) { page->SetDiffering(keys); }};
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

Page MakeItem(DocumentSession& session, const ItemRef& item, const PageTools& tools,
              const PageEvents& events) {
    constexpr int kScale = 3100, kSetpoint = 3500, kPort = 4100;  // titles of items
    switch (item.kind) {
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

Page MakeCollection(DocumentSession& session, const Place& place, const PageTools& tools,
                    const PageEvents& events) {
    auto* page = new ctlItemsPage(session, place, [&session, &tools, events](const ItemRef& item) {
        return MakeItem(session, item, tools, events);
    });
    QObject::connect(page, &ctlItemsPage::ItemShown, page, events.itemShown);
    QObject::connect(page, &ctlItemsPage::ParameterWanted, page, events.parameterWanted);
    return {page, [page](const QString& key) { return page->FocusKey(key); },
            [page](const std::set<std::string>& keys) { page->SetDiffering(keys); }};
}

Page MakeHardware(DocumentSession& session, const PageTools& tools, const PageEvents& events) {
    auto* page = new ctlHardware(session, tools);
    QObject::connect(page, &ctlHardware::KeyFocused, page, events.keyFocused);
    QObject::connect(page, &ctlHardware::ParameterWanted, page, events.parameterWanted);
    return {page, [page](const QString& key) { return page->FocusKey(key); }, [](const auto&) {}};
}

}  // namespace

Page MakePageOf(DocumentSession& session, const Place& place, const PageTools& tools,
                const PageEvents& events) {
    const ItemRef whole{std::string(place.section)};
    if (place.look == PlaceLook::Board) return MakeHardware(session, tools, events);
    if (!place.kinds.empty()) return MakeCollection(session, place, tools, events);
    if (!HasForm(session.Document(), whole)) return MakeKept(session, place, events);
    return MakeForm(session, whole, events);
}

}  // namespace calyx::ui
