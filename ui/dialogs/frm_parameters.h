#pragma once

#include <QDialog>
#include <vector>

#include "model/language/context.h"
#include "ui/panes/pane_list.h"

namespace calyx::ui {

// The reference of all parameters that have rows: key, caption, what is allowed, and which firmware takes
// the line. Made from the rows, so that it is never out of date.
class frmParameters : public QDialog {
    Q_OBJECT

  public:
    frmParameters(const ModelContext& context, QWidget* parent);

  private:
    void Filter(const QString& typed);

    std::vector<PaneList::Row> all_;
    PaneList* list_;
};

}  // namespace calyx::ui
