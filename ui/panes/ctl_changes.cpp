#include "ui/panes/ctl_changes.h"

#include "ui/panes/where.h"
#include "ui/text.h"
#include "ui/texts.h"

namespace calyx::ui {

ctlChanges::ctlChanges(DocumentSession& session)
    : PaneList(
          Say(session.Context().texts, say::kChangesTab),
          {Say(session.Context().texts, say::kParameterHeading),
           Say(session.Context().texts, say::kKeyHeading), Say(session.Context().texts, say::kSavedHeading),
           Say(session.Context().texts, say::kNowHeading)},
          3),
      session_(session) {
    setObjectName(QStringLiteral("ctlChanges"));
    SetEmptyText(Say(session.Context().texts, say::kNoChanges));
    connect(this, &PaneList::Acted, this, [this](const QString& key) {
        if (!session_.RevertParameter(KeyBytes(key)))
            emit session_.Told(Say(session_.Context().texts, say::kFollows, key));
        Refresh();  // at once, so that a second click meets the rows as they are now
    });
}

void ctlChanges::Refresh() {
    const ResourceTexts& texts = session_.Context().texts;
    const auto side = [&texts](const std::optional<std::string>& value) {
        return value ? ShownValue(*value) : Say(texts, say::kNoLine);
    };
    const QString undo = Say(texts, say::kUndoChange);
    const ChangeSet changes = session_.ChangesSinceSave();
    std::vector<Row> rows;
    rows.reserve(changes.Count());
    for (const Change& change : changes.Changes()) {
        rows.push_back({.cells = {LabelOf(session_.Document(), change.key), Shown(change.key),
                                  side(change.before), side(change.after)},
                        .key = KeyText(change.key),
                        .action = session_.CanRevert(change) ? undo : QString()});
    }
    SetRows(std::move(rows));
}

}  // namespace calyx::ui
