#pragma once

#include "ui/document_session.h"
#include "ui/panes/pane_list.h"

namespace calyx::ui {

// What reading the file passed over or changed.
class ctlReport : public PaneList {
    Q_OBJECT

  public:
    explicit ctlReport(DocumentSession& session);

  private:
    void Refresh();
    QString Became(const ReadNote& note) const;

    DocumentSession& session_;
};

// Lines of the file that saving it would drop.
std::size_t LinesNotKept(const ReadReport& report);

}  // namespace calyx::ui
