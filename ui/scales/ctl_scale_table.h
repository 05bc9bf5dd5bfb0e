#pragma once

#include "ui/tables/ctl_item_table.h"

class QLabel;

namespace calyx::ui {

// The 32 scales in one table: alias, kind, source and units at a glance. Kind and source lead to the page of
// the scale, where a change of the kind says what it clears.
class ctlScaleTable : public ctlItemTable {
    Q_OBJECT

  public:
    explicit ctlScaleTable(DocumentSession& session);

  protected:
    std::string Lines(const std::vector<int>& numbers, bool own) const override;
    Pasted Read(std::string_view lines, int first) const override;
    std::vector<Change> Cleared(int number) const override;

  private:
    void ShowNote();
    const CIndicator& Document() const;

    QLabel* note_;
};

}  // namespace calyx::ui
