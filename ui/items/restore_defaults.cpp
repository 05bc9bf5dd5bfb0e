#include "ui/items/restore_defaults.h"

#include "ui/items/items_texts.h"
#include "ui/text.h"

namespace calyx::ui {

namespace {

// What would change; `lost` counts the lines of the file among it.
struct Restoring {
    ChangeSet changes;
    std::size_t lost = 0;
    std::string title;

    void Compare(const Item& now, const Item& initial, const Place& place) {
        const std::vector<bool> written = now.WrittenRows();
        for (std::size_t row = 0; row < now.RowCount(); ++row) {
            const Use use = now.Info(row).more.use;
            if (use == Use::Page || use == Use::ReadOnly || !Holds(place, now.Key(row))) continue;
            const std::string before = now.Text(row), after = initial.Text(row);
            if (before == after) continue;
            changes.Add({now.Key(row), before, after});
            if (written[row]) ++lost;
        }
    }
};

bool IsOf(const Item& item, const ItemRef& ref) {
    return item.Number() == ref.number && (ref.kind == 0 || item.Title() == ref.kind);
}

Restoring Gather(const CIndicator& document, const ItemRef& ref, const Place& place) {
    Restoring restoring;
    for (const Section* section : document.Sections()) {
        if (section->Name() != ref.section) continue;
        restoring.title = document.Context().texts.Text(place.title);
        for (const Item* item : section->Items()) {
            if (!IsOf(*item, ref)) continue;
            if (const std::string title = section->ItemTitle(*item); !title.empty()) restoring.title = title;
            const bool isPort = item->Find("EDP.BAUD#" + std::to_string(item->Number())).has_value();
            const auto initial = item->Clone();
            initial->Initialize();
            if (isPort) {
                CCommPort port(document.Context());
                port.Initialize(item->Number());
                port.ReloadDefaults();
                restoring.Compare(*item, port.Parameters(), place);
            } else {
                restoring.Compare(*item, *initial, place);
            }
        }
    }
    return restoring;
}

}  // namespace

void RestoreDefaults(DocumentSession& session, const std::function<int(const Question& question)>& ask,
                     const ItemRef& item, const Place& place) {
    using namespace items_text;
    const ResourceTexts& texts = session.Context().texts;
    const Restoring restoring = Gather(std::as_const(session).Document(), item, place);
    const QString title = Shown(restoring.title);
    if (restoring.changes.Empty()) {
        emit session.Told(Say(texts, kHasDefaults, title));
        return;
    }
    const bool sure =
        restoring.lost == 0 ||
        ask({Tone::Question,
             Say(texts, kRestoreTitle),
             restoring.lost == 1 ? Say(texts, kRestoreOne, title)
                                 : Say(texts, kRestoreQuestion, title, QString::number(restoring.lost)),
             {},
             {Say(texts, kRestoreIt), Say(texts, kKeepSettings)},
             1}) == 0;
    if (!sure) return;
    session.Do(texts.Format(kRestoreStep, {restoring.title}),
               [&](CIndicator& document) { return document.Apply(restoring.changes); });
}

}  // namespace calyx::ui
