#include "ui/window/ctl_note.h"

#include <QLabel>
#include <QPushButton>

#include "ui/document_session.h"
#include "ui/panes/where.h"
#include "ui/text.h"
#include "ui/texts.h"

namespace calyx::ui {

namespace {
constexpr std::size_t kMostNamed = 12;
}

ctlNote::ctlNote(DocumentSession& session)
    : NoteStrip(session.Context().texts, QStringLiteral("ctlNote")), session_(session) {
    QPushButton* undo = AddButton("cmdNoteUndo", Say(session.Context().texts, say::kNoteUndo));
    connect(undo, &QPushButton::clicked, this, &ctlNote::UndoWanted);
    connect(&session_, &DocumentSession::Unkept, this, &ctlNote::ShowUnkept);
    connect(&session_, &DocumentSession::Replaced, this, &QWidget::hide);
    connect(&session_, &DocumentSession::Saved, this, &QWidget::hide);
}

void ctlNote::ShowUnkept(const std::vector<Refusal>& values) {
    if (values.empty()) return hide();
    const int text = values.size() == 1 ? say::kUnkeptOne : say::kUnkept;
    QStringList reasons;
    for (const Refusal& value : values) reasons += Shown(value.key + "=" + value.value);
    Words()->setToolTip(reasons.join(QLatin1Char('\n')));
    Tell(Say(session_.Context().texts, text, Named(values)));
}

// Item by item: "Scale 2: Alias, Zero range; Port 3: Baud rate".
QString ctlNote::Named(const std::vector<Refusal>& values) const {
    const CIndicator& document = session_.Document();
    QString named, last;
    for (std::size_t i = 0; i < std::min(values.size(), kMostNamed); ++i) {
        const QString label = LabelOf(document, values[i].key);
        const QString name = label.isEmpty() ? Shown(values[i].key) : label;
        const QString item = ItemWords(document, values[i].key);
        if (i > 0) named += item == last ? QStringLiteral(", ") : QStringLiteral("; ");
        if (item != last && !item.isEmpty()) named += item + QStringLiteral(": ");
        named += name;
        last = item;
    }
    if (values.size() <= kMostNamed) return named;
    return Say(session_.Context().texts, say::kUnkeptMore, named,
               QString::number(values.size() - kMostNamed));
}

}  // namespace calyx::ui
