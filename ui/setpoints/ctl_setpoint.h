#pragma once

#include <QWidget>

#include "ui/window/page_factory.h"

class QLabel;

namespace calyx::ui {

class ctlSetpointBar;
class ctlTripDrawing;
class FormPage;

// The page of a setpoint: what it does in a sentence and, where it has a trip, in a drawing; commands for
// the setpoint as a whole; its fields below.
class ctlSetpoint : public QWidget {
    Q_OBJECT

  public:
    ctlSetpoint(DocumentSession& session, const ItemRef& setpoint, const PageTools& tools);

    FormPage* Form() const { return form_; }

  signals:
    void ParameterWanted(const QString& key);  // of the setpoint that a command has made

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    QWidget* MakeHeader();
    void Follow();
    void Refresh();
    const CSetpoints& All() const;
    const ResourceTexts& Texts() const { return session_.Context().texts; }

    DocumentSession& session_;
    int number_;
    QLabel* sentence_;
    ctlTripDrawing* drawing_;
    ctlSetpointBar* bar_;
    FormPage* form_;
    bool stale_ = false;
};

}  // namespace calyx::ui
