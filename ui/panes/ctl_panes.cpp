#include "ui/panes/ctl_panes.h"

#include <QSplitter>
#include <QTabBar>
#include <algorithm>

#include "ui/text.h"
#include "ui/texts.h"
#include "ui/theme/icons.h"

namespace calyx::ui {

ctlPanes::ctlPanes(DocumentSession& session)
    : session_(session),
      problems_(new ctlProblems(session)),
      report_(new ctlReport(session)),
      changes_(new ctlChanges(session)),
      log_(new ctlLinkLog(session.Context().texts)) {
    const ResourceTexts& texts = session.Context().texts;
    setObjectName(QStringLiteral("ctlPanes"));
    setAccessibleName(Say(texts, say::kPanesName));
    setDocumentMode(true);
    addTab(problems_, Say(texts, say::kProblemsTab));
    addTab(report_, Say(texts, say::kReportTab));
    addTab(changes_, Say(texts, say::kChangesTab));
    addTab(log_, Say(texts, say::kLogTab));
    for (PaneList* pane : {static_cast<PaneList*>(problems_), static_cast<PaneList*>(report_),
                           static_cast<PaneList*>(changes_)}) {
        connect(pane, &PaneList::Chosen, this, &ctlPanes::Chosen);
    }

    soon_.setSingleShot(true);
    soon_.setInterval(kDelay);
    connect(&soon_, &QTimer::timeout, this, &ctlPanes::Refresh);
    connect(&session_, &DocumentSession::Changed, this, [this] { soon_.start(); });
    connect(&session_, &DocumentSession::Replaced, this, [this] {
        opened_ = false;
        Refresh();
    });
    connect(this, &QTabWidget::tabBarClicked, this, &ctlPanes::Open);
    connect(this, &QTabWidget::currentChanged, this, &ctlPanes::Fold);
    connect(&session_, &DocumentSession::Saved, this, &ctlPanes::Refresh);
}

void ctlPanes::Refresh() {
    soon_.stop();
    problems_->Refresh();
    changes_->Refresh();
    ShowCount(problems_, say::kProblemsTab, problems_->Count());
    ShowCount(report_, say::kReportTab, report_->Count());
    ShowCount(changes_, say::kChangesTab, changes_->Count());
    setTabIcon(indexOf(problems_), problems_->Count() == 0 ? QIcon() : Icon(IconName::Problem));
    Fold();
    emit Refreshed();
}

void ctlPanes::Open() {
    opened_ = true;
    Fold();
}

bool ctlPanes::IsEmpty() const {
    if (currentWidget() == log_) return log_->Text().isEmpty();
    return static_cast<const PaneList*>(currentWidget())->Count() == 0;
}

void ctlPanes::Fold() {
    SetFolded(!opened_ && IsEmpty());
}

void ctlPanes::SetFolded(bool folded) {
    if (folded == folded_) return;
    folded_ = folded;
    if (folded && isVisible()) openHeight_ = height();
    const int tabs = tabBar()->sizeHint().height();
    setMinimumHeight(folded ? tabs : 0);
    setMaximumHeight(folded ? tabs : QWIDGETSIZE_MAX);
    // A splitter gives and takes no room by itself.
    auto* splitter = qobject_cast<QSplitter*>(parentWidget());
    if (splitter == nullptr) return;
    QList<int> sizes = splitter->sizes();
    const int place = splitter->indexOf(this);
    // On a low screen the page keeps its room.
    const int most = openHeight_ > 0 ? openHeight_ : std::clamp(splitter->height() / 4, kLowest, kFirst);
    const int wanted = folded ? tabs : most;
    sizes[place == 0 ? 1 : place - 1] += sizes[place] - wanted;
    sizes[place] = wanted;
    splitter->setSizes(sizes);
}

void ctlPanes::ShowCount(QWidget* pane, int caption, int count) {
    const ResourceTexts& texts = session_.Context().texts;
    const QString words = Say(texts, caption);
    setTabText(indexOf(pane), count == 0 ? words : Say(texts, say::kTabCount, words, QString::number(count)));
}

}  // namespace calyx::ui
