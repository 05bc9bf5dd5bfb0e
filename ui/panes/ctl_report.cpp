#include "ui/panes/ctl_report.h"

#include <algorithm>

#include "ui/text.h"
#include "ui/texts.h"

namespace calyx::ui {

using Kind = ReadNote::Kind;

ctlReport::ctlReport(DocumentSession& session)
    : PaneList(
          Say(session.Context().texts, say::kReportTab),
          {Say(session.Context().texts, say::kLineHeading), Say(session.Context().texts, say::kTextHeading),
           Say(session.Context().texts, say::kNoteHeading)},
          1),
      session_(session) {
    setObjectName(QStringLiteral("ctlReport"));
    SetEmptyText(Say(session.Context().texts, say::kNoReport));
    connect(this, &PaneList::Acted, this, &PaneList::Chosen);
    connect(&session_, &DocumentSession::Replaced, this, &ctlReport::Refresh);
}

void ctlReport::Refresh() {
    const QString goTo = Say(session_.Context().texts, say::kGoTo);
    std::vector<Row> rows;
    for (const ReadNote& note : session_.Report().Notes()) {
        const bool kept = note.kind != Kind::TextLine && note.kind != Kind::UnknownKey;
        const QString line = note.line == 0 ? QString() : QString::number(note.line);
        const std::string text = note.kind == Kind::TextLine ? note.value : note.key + "=" + note.value;
        rows.push_back({.cells = {line, ShownValue(text), Became(note)},
                        .key = kept ? KeyText(note.key) : QString(),
                        .action = kept ? goTo : QString()});
    }
    SetRows(std::move(rows));
}

QString ctlReport::Became(const ReadNote& note) const {
    const ResourceTexts& texts = session_.Context().texts;
    const QString became = ShownValue(note.became);
    if (!note.reason.empty()) return Shown(note.reason);
    switch (note.kind) {
        case Kind::TextLine:
            return Say(texts, say::kNoteText);
        case Kind::UnknownKey:
            for (const Section* section : std::as_const(session_).Document().Sections()) {
                if (section->Name() == note.section)
                    return Say(texts, say::kNoteNotThere, Say(texts, section->Title()));
            }
            return Say(texts, say::kNoteUnknown);
        case Kind::DuplicateKey:
            return Say(texts, say::kNoteDuplicate);
        case Kind::ListValue:
            return Say(texts, say::kNoteList, became);
        case Kind::NotUnderstood:
            return Say(texts, say::kNoteNotUnderstood, became);
        case Kind::PartlyRead:
            return Say(texts, say::kNotePartly, became);
        case Kind::NotWritten:
            return Say(texts, say::kNoteNotWritten);
        case Kind::Cut:
            return Say(texts, say::kNoteCut, became);
    }
    return {};
}

std::size_t LinesNotKept(const ReadReport& report) {
    const auto& notes = report.Notes();
    return static_cast<std::size_t>(std::count_if(notes.begin(), notes.end(), [](const ReadNote& note) {
        const bool leftOut = note.kind == Kind::NotUnderstood && note.became.empty();
        return leftOut || note.kind == Kind::TextLine || note.kind == Kind::UnknownKey ||
               note.kind == Kind::DuplicateKey || note.kind == Kind::NotWritten;
    }));
}

}  // namespace calyx::ui
