#pragma once

#include <functional>
#include <vector>

#include "ui/items/ctl_grid.h"

namespace calyx::ui {

// A grid with one item a row, whose first column stands for the item as a whole: there copy, paste, Delete
// and the menu are for whole items. There and on other cells that are words alone Enter or a double click
// opens the page of the item. Items that were copied are pasted as such from any cell.
class ctlItemGrid : public ctlGrid {
    Q_OBJECT

  public:
    // `holdsItems`: whether the clipboard has items for this grid.
    ctlItemGrid(DocumentSession& session, GridModel* model, const QString& name,
                std::function<bool()> holdsItems);

    // Commands of the menu for whole items, besides opening the page: shown with their keys, which work
    // everywhere in the grid.
    void SetCommands(std::vector<QAction*> commands) { commands_ = std::move(commands); }

    // The last column fills the grid, but is never narrower than this; in pixels.
    void SetLastColumn(int least);

    int CurrentNumber() const;               // 0: none
    std::vector<int> ChosenNumbers() const;  // of the rows with chosen cells, from the top
    bool GoTo(int number);                   // to the row of an item, its first column; false: not shown

  signals:
    void OpenWanted(int number);
    void CopyWanted();
    void PasteWanted();
    void ClearWanted();

  public slots:
    void Copy() override;
    void Paste() override;
    void ResetToDefault() override;

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    bool WholeItemsChosen() const;
    bool LeadsToPage(const QModelIndex& index) const;

    std::function<bool()> holdsItems_;
    std::vector<QAction*> commands_;
    int leastLast_ = 0;
};

}  // namespace calyx::ui
