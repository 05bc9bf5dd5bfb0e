#pragma once

#include <QStackedWidget>

#include "ui/document_session.h"

class QPushButton;

namespace calyx::ui {

class ctlItemsPage;

// The page of the junction boxes: their list, or how a configuration comes to have one.
class ctlBoxes : public QStackedWidget {
    Q_OBJECT

  public:
    ctlBoxes(DocumentSession& session, ctlItemsPage* items);

  signals:
    void ParameterWanted(const QString& key);

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    QWidget* MakeEmptyState();
    void Refresh();

    DocumentSession& session_;
    QPushButton* go_;
    int port_ = 0;  // that the button leads to
};

}  // namespace calyx::ui
