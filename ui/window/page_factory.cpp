#include "ui/window/page_factory.h"

#include "ui/form/form_page.h"
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

}  // namespace

Page MakePageOf(DocumentSession& session, const Place& place, const PageEvents& events) {
    const std::string section(place.section);
    if (!HasForm(session.Document(), section)) return MakeKept(session, place, events);
    FormPage* page = MakePage(session, section);
    QObject::connect(page, &FormPage::KeyFocused, page, events.keyFocused);
    QObject::connect(page, &FormPage::ShowInLines, page, events.showInLines);
    return {page, [page](const QString& key) { return page->FocusKey(key); },
            [page](const std::set<std::string>& keys) { page->SetDiffering(keys); }};
}

}  // namespace calyx::ui
