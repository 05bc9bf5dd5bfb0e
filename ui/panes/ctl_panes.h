#pragma once

#include <QTabWidget>
#include <QTimer>

#include "ui/document_session.h"
#include "ui/panes/ctl_changes.h"
#include "ui/panes/ctl_link_log.h"
#include "ui/panes/ctl_problems.h"
#include "ui/panes/ctl_report.h"

namespace calyx::ui {

// The panes at the bottom, one tab each, with their counts in the tabs. Problems and changes are found a
// moment after the last edit, so that typing stays swift. While the chosen pane is empty only the tabs
// show; a click on a tab opens it all the same.
class ctlPanes : public QTabWidget {
    Q_OBJECT

  public:
    explicit ctlPanes(DocumentSession& session);

    ctlProblems& Problems() { return *problems_; }
    ctlReport& Report() { return *report_; }
    ctlChanges& Changes() { return *changes_; }
    ctlLinkLog& Log() { return *log_; }

    void Refresh();  // now
    void Open();     // shows the chosen pane even when it is empty

  signals:
    void Chosen(const QString& key);
    void Refreshed();

  private:
    void ShowCount(QWidget* pane, int caption, int count);
    bool IsEmpty() const;
    void Fold();
    void SetFolded(bool folded);

    static constexpr int kDelay = 150;                // ms
    static constexpr int kLowest = 96, kFirst = 160;  // pixels

    DocumentSession& session_;
    ctlProblems* problems_;
    ctlReport* report_;
    ctlChanges* changes_;
    ctlLinkLog* log_;
    QTimer soon_;
    bool opened_ = false;  // by the user, until there is another document
    bool folded_ = false;
    int openHeight_ = 0;  // pixels, as it was before it was folded; 0: it was not open yet
};

}  // namespace calyx::ui
