#pragma once

#include <QDialog>

#include "app/context.h"
#include "ui/link/link_desk.h"

class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;
class QRadioButton;

namespace calyx::ui {

class ctlSerial;

// Connects to an indicator over a serial line or TCP, or to the simulated one. Stays open until that has
// succeeded or the user leaves; accepted when connected. What was chosen is kept in the settings.
class frmConnect : public QDialog {
    Q_OBJECT

  public:
    frmConnect(AppContext& app, LinkDesk& desk, QWidget* parent);

    void reject() override;

  private:
    void MakeControls();
    QWidget* MakeTcp();
    void MakeLayout();
    void Connect();
    void ConnectSimulated();
    void Detect();
    void EndOfDetection(bool found, const LinkSettings& wire);
    void ShowTried(const QString& tried);
    bool Take(LinkSettings& wire);
    template <class Open>
    void Try(const QString& where, Open&& open);
    void ShowWay();
    void SetWorking(bool on);
    void Say(const QString& words, bool problem);
    QString Text(int number) const;

    AppContext& app_;
    LinkDesk& desk_;
    QRadioButton *serialWay_, *tcpWay_;
    ctlSerial* serial_;
    QWidget* tcp_ = nullptr;
    QLineEdit* host_;
    QLineEdit* port_;
    QPushButton *connect_, *simulated_, *cancel_;
    QProgressBar* progress_;
    QLabel* note_;
    bool working_ = false;
};

}  // namespace calyx::ui
