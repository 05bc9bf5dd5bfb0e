#pragma once

#include <QWidget>

#include "ui/items/ctl_grid.h"

class QLabel;

namespace calyx::ui {

// A page that is one grid, with a line below that says what is wrong in the cell, or else what its value
// does.
class ctlGridPage : public QWidget {
    Q_OBJECT

  public:
    // `foot`: what stands below the line, or nothing.
    ctlGridPage(DocumentSession& session, const QStringList& headings, GridSource source, const QString& name,
                QWidget* foot = nullptr);
    explicit ctlGridPage(ctlGrid* grid, QWidget* foot = nullptr);

    ctlGrid& Grid() const { return *grid_; }

  private:
    void ShowNote();

    ctlGrid* grid_;
    QLabel* note_;
};

}  // namespace calyx::ui
