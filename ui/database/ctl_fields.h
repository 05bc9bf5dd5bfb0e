#pragma once

#include <memory>

#include "ui/prompts/ctl_row_grid.h"

namespace calyx::ui {

// The fields of one database table, one a row.
class ctlFields : public ctlRowGrid {
    Q_OBJECT

  public:
    explicit ctlFields(DocumentSession& session);

    void SetTable(int slot, int table);  // 0: none
    QWidget* MakeCommands();

  private:
    struct Place {
        int slot = 0, table = 0;
        friend bool operator==(const Place&, const Place&) = default;
    };
    ctlFields(DocumentSession& session, std::shared_ptr<Place> place);
    static GridSource FieldsOf(const std::shared_ptr<Place>& place);

    const CSchema* Schema() const;  // nothing: no table is chosen
    bool Edit(const std::string& step, const std::function<void(CSchema& schema)>& act);
    bool HasRoom(std::size_t more);
    void Add();
    void Remove();
    void Move(int from, int to);
    void CopyFields();
    void PasteFields();
    void TellNoTable();

    DocumentSession& session_;
    std::shared_ptr<Place> place_;  // shared with what fills the grid
};

}  // namespace calyx::ui
