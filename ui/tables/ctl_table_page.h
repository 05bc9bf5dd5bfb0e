#pragma once

#include "ui/items/ctl_items_page.h"
#include "ui/tables/ctl_item_table.h"

namespace calyx::ui {

// The page of a collection with a table in the place of its list: the table, and the page of the item that
// was opened from it.
class ctlTablePage : public QWidget {
    Q_OBJECT

  public:
    // `items`: the pages of the items of the same place; its own list is never seen.
    ctlTablePage(ctlItemTable* table, ctlItemsPage* items);

    // Goes to the cell while the table is what is worked in, else to the field on the item's page.
    bool FocusKey(const QString& key);
    void SetDiffering(const std::set<std::string>& keys);
    ctlItemTable* Table() const { return table_; }

  signals:
    void ItemShown(const std::optional<calyx::ui::ItemRef>& item);  // nothing: the table

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    void Open(int number);
    void ShowTable();
    bool IsInTable() const;

    ctlItemTable* table_;
    ctlItemsPage* items_;
    QStackedWidget* stack_;
    bool opening_ = false;
};

}  // namespace calyx::ui
