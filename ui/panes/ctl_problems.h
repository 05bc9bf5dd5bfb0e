#pragma once

#include <vector>

#include "ui/document_session.h"
#include "ui/panes/pane_list.h"

namespace calyx::ui {

// The rules that the configuration breaks, each with the way to its field.
class ctlProblems : public PaneList {
    Q_OBJECT

  public:
    explicit ctlProblems(DocumentSession& session);

    void Refresh();
    const std::vector<BrokenRule>& Rules() const { return rules_; }

  private:
    DocumentSession& session_;
    std::vector<BrokenRule> rules_;
};

}  // namespace calyx::ui
