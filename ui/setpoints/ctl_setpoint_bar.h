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

// Commands for one setpoint as a whole: a copy under another number, another number for itself, as new. Each
// is one step of undo.
class ctlSetpointBar : public QWidget {
    Q_OBJECT

  public:
    // `names`: of the controls begin so.
    ctlSetpointBar(DocumentSession& session, const PageTools& tools, QString names = {});

    void SetNumber(int number);  // the setpoint that is meant
    void Refresh();              // after a change of the document

  signals:
    void Made(int number);  // a command has put the setpoint there

  private:
    QPushButton* MakeButton(int text, int tip, const QString& name, void (ctlSetpointBar::*act)());
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
    const PageTools& tools_;
    const QString names_;
    int number_ = 0;  // none yet
    QSpinBox* target_;
    QLabel* targetState_;
};

}  // namespace calyx::ui
