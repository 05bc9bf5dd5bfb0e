#pragma once

#include "ui/document_session.h"
#include "ui/panes/pane_list.h"

namespace calyx::ui {

// What was changed since the last save, parameter by parameter, each to be taken back alone.
class ctlChanges : public PaneList {
    Q_OBJECT

  public:
    explicit ctlChanges(DocumentSession& session);

    void Refresh();

  private:
    DocumentSession& session_;
};

}  // namespace calyx::ui
