#pragma once

#include <QDialog>

#include "app/context.h"
#include "ui/link/link_desk.h"

class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;

namespace calyx::ui {

// Connects to an indicator over TCP or to the simulated one. Stays open until that has succeeded or the
// user leaves; accepted when connected.
class frmConnect : public QDialog {
    Q_OBJECT

  public:
    frmConnect(AppContext& app, LinkDesk& desk, QWidget* parent);

    void reject() override;

  private:
    void ConnectTcp();
    void ConnectSimulated();
    template <class Open>
    void Try(const QString& where, Open&& open);
    void SetConnecting(bool on);
    void ShowNote(const QString& words, bool problem);

    AppContext& app_;
    LinkDesk& desk_;
    QLineEdit* host_;
    QLineEdit* port_;
    QPushButton* connect_;
    QPushButton* simulated_;
    QPushButton* cancel_;
    QProgressBar* progress_;
    QLabel* note_;
    bool connecting_ = false;
};

}  // namespace calyx::ui
