#pragma once

#include <QDialog>
#include <QTimer>
#include <optional>
#include <vector>

#include "app/context.h"
#include "comm/clock.h"
#include "comm/stream_simulator.h"
#include "comm/transport_factory.h"
#include "ui/document_session.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QSpinBox;

namespace calyx::ui {

class ctlSerial;

// Sends weights over a serial port of this computer, as a port of the open configuration would stream them.
// It stays open beside the window and follows the edits of the stream definition.
class frmStreamSimulator : public QDialog {
    Q_OBJECT

  public:
    frmStreamSimulator(AppContext& app, DocumentSession& session, QWidget* parent);

  private:
    void MakeControls();
    QLayout* MakeFields();
    void AddPorts();
    void ShowSettings();
    void KeepSettings();
    void StartOrStop();
    void Poll();
    bool Follow();
    void ShowRunning();
    std::optional<std::vector<SampleWeight>> Weights() const;
    QString Text(int number) const;

    AppContext& app_;
    DocumentSession& session_;
    SteadyClock clock_;
    TransportFactory transports_;
    StreamSimulator simulator_;
    ctlSerial* serial_;
    QComboBox *port_, *mode_, *state_, *units_;
    QLineEdit* weights_;
    QSpinBox* every_;
    QLabel *last_, *note_;
    QPushButton* start_;
    QTimer next_;
};

}  // namespace calyx::ui
