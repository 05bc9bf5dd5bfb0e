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
// moment after the last edit, so that typing stays swift.
class ctlPanes : public QTabWidget {
    Q_OBJECT

  public:
    explicit ctlPanes(DocumentSession& session);

    ctlProblems& Problems() { return *problems_; }
    ctlReport& Report() { return *report_; }
    ctlChanges& Changes() { return *changes_; }
    ctlLinkLog& Log() { return *log_; }

    void Refresh();  // now

  signals:
    void Chosen(const QString& key);
    void Refreshed();

  private:
    void ShowCount(QWidget* pane, int caption, int count);

    static constexpr int kDelay = 150;  // ms

    DocumentSession& session_;
    ctlProblems* problems_;
    ctlReport* report_;
    ctlChanges* changes_;
    ctlLinkLog* log_;
    QTimer soon_;
};

}  // namespace calyx::ui
