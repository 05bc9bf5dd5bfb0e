#pragma once

#include <memory>

#include "ui/prompts/ctl_row_grid.h"

namespace calyx::ui {

// The database tables of one memory card, one a row.
class ctlTables : public ctlRowGrid {
    Q_OBJECT

  public:
    explicit ctlTables(DocumentSession& session);

    int Slot() const { return *slot_; }
    void SetSlot(int slot);  // 0: no card
    int Table() const;       // the current one; 0: none
    bool GoToTable(int table);
    QWidget* MakeCommands();

  private:
    ctlTables(DocumentSession& session, std::shared_ptr<int> slot);

    const CMemoryCard& Card() const;
    std::vector<int> Chosen() const;
    bool HasRoom(int more);
    void Add(bool sample);
    void Remove();
    void CopyTables();
    void PasteTables();

    DocumentSession& session_;
    std::shared_ptr<int> slot_;  // shared with what fills the grid
};

}  // namespace calyx::ui
