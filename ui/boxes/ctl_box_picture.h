#pragma once

#include <QWidget>
#include <set>

#include "ui/boxes/box_edits.h"
#include "ui/boxes/box_painter.h"
#include "ui/boxes/box_plan.h"

namespace calyx::ui {

// The picture of a junction box, to be worked in: arrows walk the parts, Space and Ctrl or Shift with the
// mouse choose cells; 1 to 4 or a drag assign the chosen cells to a platform, Delete or a drag to the lowest
// band takes them from it. A platform is added to the system, or taken out, with Space or by a drag.
class ctlBoxPicture : public QWidget {
    Q_OBJECT

  public:
    ctlBoxPicture(DocumentSession& session, int port);

    const BoxPlan& Plan() const { return plan_; }
    const BoxMarks& Marks() const { return marks_; }
    BoxEdits& Edits() { return edits_; }
    void Refresh();  // follows the document

    // Also for buttons beside the picture.
    void AssignTo(int platform);
    void Unassign();
    void TurnInSystem();

    void GoTo(BoxPlan::Kind kind, int number);
    void FocusPart(int part);  // with the keyboard, and chosen alone when it is a cell

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;

  signals:
    void FocusMoved();

  protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

  private:
    BoxPlan MakePlan(int width) const;
    const BoxPlan::Part* Focused() const;
    bool HasFocusOn(BoxPlan::Kind kind) const;
    void Walk(int dx, int dy, bool extend);
    void Turn(int cell);  // chosen or not
    void StopDragging();
    void ShowDrop(const QPointF& point);

    DocumentSession& session_;
    BoxEdits edits_;
    BoxPlan plan_;
    BoxMarks marks_;
    QPointF pressed_;
    int held_ = -1;           // part under the mouse when it was pressed
    bool chooseOne_ = false;  // a click on one of several chosen cells chooses it alone
};

}  // namespace calyx::ui
