#pragma once

#include <functional>
#include <vector>

#include "ui/items/ctl_grid.h"

class QAction;

namespace calyx::ui {

// A grid whose rows come, go and change places. The first column stands for the row as a whole: there copy,
// paste and Delete are for whole rows, and there a row is taken to be dragged to another place.
class ctlRowGrid : public ctlGrid {
    Q_OBJECT

  public:
    ctlRowGrid(DocumentSession& session, GridModel* model, const QString& name);

    // Where rows can be dragged; each row answers for itself.
    void SetMovable(std::function<bool(int row)> movable);
    bool IsMovable(int row) const;
    // Moves the current row by one place.
    void MoveCurrent(int step);
    void GoTo(int row, int column);
    void GoToAndEdit(int row, int column);

    // A command of the rows: a button of the bar and an entry of the menu of the first column. `keys` work
    // in the whole grid; `shown` are told only, since the grid itself takes them.
    struct Command {
        int text = 0, tip = 0;  // numbers of resource texts
        const char* name = "";
        std::function<void()> act = {};
        QKeySequence keys = {};
        QKeySequence shown = {};
    };
    // `hint`: resource text of a line above the buttons; 0: none.
    QWidget* MakeBar(const std::vector<Command>& commands, int hint = 0);

    std::vector<int> ChosenRows() const;  // from the top
    bool WholeRowsChosen() const;         // nothing but the first column

  signals:
    void MoveWanted(int from, int to);
    void RemoveWanted();
    void CopyRowsWanted();
    void PasteRowsWanted();

  public slots:
    void Copy() override;
    void Paste() override;
    void ResetToDefault() override;

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    int GapAt(const QPoint& place) const;  // the row before which a dragged one would stand
    void StopDragging();

    DocumentSession& session_;
    std::function<bool(int row)> movable_;
    std::vector<QAction*> commands_;
    QPoint pressed_;
    int taken_ = -1;  // the row that the mouse holds
    int gap_ = -1;    // while it is dragged
};

}  // namespace calyx::ui
