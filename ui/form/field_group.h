#pragma once

#include <QWidget>
#include <vector>

#include "ui/form/field.h"

class QGridLayout;

namespace calyx::ui::form {

// A heading and its fields: mark, label, control with its unit and message. Fields that are all switches
// stand as two columns of check boxes with their labels behind them.
class FieldGroup : public QWidget {
    Q_OBJECT

  public:
    FieldGroup(const QString& heading, std::vector<Field*> fields, QWidget* parent);

    bool IsCheckList() const { return checks_; }
    int WidestLabel() const;        // of the fields that are there
    void SetLabelWidth(int width);  // one for all groups of a page
    double Weight() const;          // its height at its fullest, in rows

  private:
    void AddRow(QGridLayout* grid, int row, Field* field);
    void AddCheck(QGridLayout* grid, int row, int column, Field* field);

    std::vector<Field*> fields_;
    bool checks_;
};

}  // namespace calyx::ui::form
