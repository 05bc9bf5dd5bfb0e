#pragma once

#include "ui/setpoints/setpoint_table_rows.h"
#include "ui/tables/ctl_item_table.h"
#include "ui/window/page_factory.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;

namespace calyx::ui {

class ctlSetpointBar;

// The 100 setpoints in one table: a filter above, the grid, and below what the setpoint of the current row
// does, what is wrong in the current cell, and the commands for the setpoint as a whole. Ctrl+Shift+Up and
// Down move it by one place; references follow.
class ctlSetpointTable : public ctlItemTable {
    Q_OBJECT

  public:
    ctlSetpointTable(DocumentSession& session, const PageTools& tools);

    void GoTo(int number) override;  // a filter that hides it is taken off

  protected:
    std::string Lines(const std::vector<int>& numbers, bool own) const override;
    Pasted Read(std::string_view lines, int first) const override;
    std::vector<Change> Cleared(int number) const override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

  private:
    void SetWidths();
    QWidget* MakeFilter();
    QWidget* MakeNoMatch();
    QCheckBox* MakeCheck(int text, int tip, const char* name, bool SetpointFilter::*what);
    void FilterChanged();
    void ShowAll();
    void Follow();
    void ShowCount();
    void ShowCurrent();
    void MoveBy(int step);
    const CSetpoints& All() const;

    SetpointFilter filter_;
    QLineEdit* text_;
    QComboBox* kind_;
    std::vector<QCheckBox*> checks_;
    QLabel *count_, *sentence_, *problem_;
    QWidget *below_, *buttons_ = nullptr, *noMatch_ = nullptr;
    ctlSetpointBar* bar_;
    bool stale_ = false;
};

}  // namespace calyx::ui
