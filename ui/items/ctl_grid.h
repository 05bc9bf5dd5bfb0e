#pragma once

#include <QTableView>
#include <functional>
#include <set>
#include <string>

#include "ui/items/grid_model.h"

namespace calyx::ui {

// A grid to edit in place. Arrows walk the cells, Tab goes on to the next control; typing, F2, Enter or a
// double click edits; Enter takes the value and goes one row down, Tab takes it and goes to the next cell
// that can be edited; Esc gives up what could not be taken; Space turns a switch; Delete goes back to the
// default; copy and paste take and bring cells as spreadsheets do.
class ctlGrid : public QTableView {
    Q_OBJECT

  public:
    // The grid owns the model.
    ctlGrid(DocumentSession& session, GridModel* model, const QString& name);

    GridModel& Model() const { return *model_; }
    // Goes to the cell and lights it up. False: the grid has no such cell.
    bool FocusKey(const QString& key);
    void SetDiffering(const std::set<std::string>& keys) { model_->SetDiffering(keys); }
    std::optional<ItemRef> CurrentItem() const;
    // Columns as wide as what stands in them; the last one takes the rest.
    void FitColumns();
    // Takes what is being typed into its cell.
    void FinishEditor();

  signals:
    void KeyFocused(const QString& key);
    void ShowInLines(const QString& key);
    void ParameterWanted(const QString& key);

  public slots:
    virtual void Copy();
    virtual void Paste();
    virtual void ResetToDefault();

  protected:
    void showEvent(QShowEvent* event) override;
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void setSelection(const QRect& rect, QItemSelectionModel::SelectionFlags command) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;
    bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override;

  private:
    void Follow();
    void Refresh();
    void SpanHeadings();
    void Activate(const QModelIndex& index);
    void ShowHelp();
    void Walk(bool forward);
    void Steer(Qt::KeyboardModifiers modifiers, const std::function<void()>& act);
    QModelIndexList Chosen() const;
    void CopyAsLine();
    void ShowFirmware();

    DocumentSession& session_;
    GridModel* model_;
    QPersistentModelIndex anchor_;  // chosen by the program: where Shift selects from
    bool steered_ = false;          // by a key or the mouse, not by the program
    bool stale_ = false;            // a grid out of sight does not follow every edit
};

}  // namespace calyx::ui
