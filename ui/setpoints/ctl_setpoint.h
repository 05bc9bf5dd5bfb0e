#pragma once

#include <QWidget>
#include <string>
#include <vector>

#include "model/language/change_set.h"
#include "ui/window/page_factory.h"

class QLabel;
class QPushButton;
class QSpinBox;

namespace calyx::ui {

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
    QWidget* MakeBar();
    QPushButton* MakeButton(int text, int tip, const char* name, void (ctlSetpoint::*act)());
    void Follow();
    void Refresh();
    void ShowTarget();
    void Duplicate();
    void Move();
    void Clear();
    int FirstFree() const;  // behind this one, else from the beginning; this one when all are in use
    bool IsFree(int number) const;
    QString InUse(int number) const;
    bool Apply(const std::vector<Change>& changes, int name, int other);
    const CSetpoints& All() const;
    const ResourceTexts& Texts() const { return session_.Context().texts; }

    DocumentSession& session_;
    int number_;
    const PageTools& tools_;
    QLabel* sentence_;
    ctlTripDrawing* drawing_;
    QSpinBox* target_;
    QLabel* targetState_;
    FormPage* form_;
    bool stale_ = false;
};

}  // namespace calyx::ui
