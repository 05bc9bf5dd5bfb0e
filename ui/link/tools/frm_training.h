#pragma once

#include <QDialog>

#include "app/context.h"
#include "ui/link/link_desk.h"

class QLabel;
class QTreeWidget;

namespace calyx::ui {

// Chooses how the simulated indicator misbehaves.
class frmTraining : public QDialog {
    Q_OBJECT

  public:
    frmTraining(AppContext& app, LinkDesk& desk, QWidget* parent);

  private:
    void MakeList();
    void Apply();

    AppContext& app_;
    LinkDesk& desk_;
    QTreeWidget* list_;
    QLabel* note_;
};

}  // namespace calyx::ui
