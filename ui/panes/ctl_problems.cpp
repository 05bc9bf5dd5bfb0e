#include "ui/panes/ctl_problems.h"

#include "ui/panes/where.h"
#include "ui/text.h"
#include "ui/texts.h"

namespace calyx::ui {

ctlProblems::ctlProblems(DocumentSession& session)
    : PaneList(
          Say(session.Context().texts, say::kProblemsTab),
          {Say(session.Context().texts, say::kProblemHeading),
           Say(session.Context().texts, say::kWhereHeading), Say(session.Context().texts, say::kKeyHeading)},
          0),
      session_(session) {
    setObjectName(QStringLiteral("ctlProblems"));
    SetEmptyText(Say(session.Context().texts, say::kNoProblems));
    connect(this, &PaneList::Acted, this, &PaneList::Chosen);
}

void ctlProblems::Refresh() {
    session_.Settle();
    rules_ = session_.Problems();
    const QString goTo = Say(session_.Context().texts, say::kGoTo);
    std::vector<Row> rows;
    rows.reserve(rules_.size());
    for (const BrokenRule& rule : rules_) {
        rows.push_back(
            {.cells = {Shown(rule.text), WhereWords(session_.Document(), rule.key), Shown(rule.key)},
             .key = KeyText(rule.key),
             .action = rule.key.empty() ? QString() : goTo,
             .problem = true});
    }
    SetRows(std::move(rows));
}

}  // namespace calyx::ui
