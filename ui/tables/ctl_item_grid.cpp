#include "ui/tables/ctl_item_grid.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QMenu>
#include <algorithm>
#include <set>
#include <utility>

namespace calyx::ui {

ctlItemGrid::ctlItemGrid(DocumentSession& session, GridModel* model, const QString& name,
                         std::function<bool()> holdsItems)
    : ctlGrid(session, model, name), holdsItems_(std::move(holdsItems)) {
    connect(this, &QTableView::doubleClicked, this, [this](const QModelIndex& index) {
        if (LeadsToPage(index)) emit OpenWanted(CurrentNumber());
    });
}

void ctlItemGrid::SetLastColumn(int least) {
    leastLast_ = least;
    horizontalHeader()->setStretchLastSection(false);
}

void ctlItemGrid::resizeEvent(QResizeEvent* event) {
    ctlGrid::resizeEvent(event);
    if (leastLast_ == 0) return;
    const int last = Model().columnCount() - 1;
    setColumnWidth(last, std::max(leastLast_, viewport()->width() - columnViewportPosition(last) -
                                                  horizontalHeader()->offset()));
}

int ctlItemGrid::CurrentNumber() const {
    return currentIndex().isValid() ? Model().RowAt(currentIndex().row()).item.number : 0;
}

std::vector<int> ctlItemGrid::ChosenNumbers() const {
    std::set<int> rows;
    for (const QModelIndex& index : selectionModel()->selectedIndexes()) rows.insert(index.row());
    if (rows.empty() && currentIndex().isValid()) rows.insert(currentIndex().row());
    std::vector<int> numbers;
    for (const int row : rows) numbers.push_back(Model().RowAt(row).item.number);
    return numbers;
}

bool ctlItemGrid::GoTo(int number) {
    for (int row = 0; row < Model().rowCount(); ++row) {
        if (Model().RowAt(row).item.number != number) continue;
        // The first alone would leave the selection while Ctrl is held; the second alone would let Shift
        // select from where the view was before.
        setCurrentIndex(Model().index(row, 0));
        selectionModel()->select(currentIndex(), QItemSelectionModel::ClearAndSelect);
        scrollTo(currentIndex());
        return true;
    }
    return false;
}

bool ctlItemGrid::WholeItemsChosen() const {
    const QModelIndexList chosen = selectionModel()->selectedIndexes();
    if (chosen.isEmpty()) return currentIndex().column() == 0;
    return std::all_of(chosen.begin(), chosen.end(), [](const auto& index) { return index.column() == 0; });
}

bool ctlItemGrid::LeadsToPage(const QModelIndex& index) const {
    return index.isValid() && Model().KeyAt(index).empty() && Model().GoToOf(index).isEmpty();
}

void ctlItemGrid::Copy() {
    if (!WholeItemsChosen()) return ctlGrid::Copy();
    emit CopyWanted();
}

void ctlItemGrid::Paste() {
    if (!WholeItemsChosen() && !holdsItems_()) return ctlGrid::Paste();
    emit PasteWanted();
}

void ctlItemGrid::ResetToDefault() {
    if (!WholeItemsChosen()) return ctlGrid::ResetToDefault();
    emit ClearWanted();
}

void ctlItemGrid::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && event->modifiers() == Qt::NoModifier && LeadsToPage(currentIndex()))
        return emit OpenWanted(CurrentNumber());
    ctlGrid::keyPressEvent(event);
}

void ctlItemGrid::contextMenuEvent(QContextMenuEvent* event) {
    if (currentIndex().column() != 0 || commands_.empty()) return ctlGrid::contextMenuEvent(event);
    auto* menu = new QMenu(this);
    menu->setObjectName(QStringLiteral("menuItem"));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (QAction* command : commands_) menu->addAction(command);
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    menu->popup(byKey ? viewport()->mapToGlobal(visualRect(currentIndex()).bottomLeft())
                      : event->globalPos());
}

}  // namespace calyx::ui
