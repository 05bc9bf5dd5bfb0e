#include "ui/prompts/ctl_row_grid.h"

#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QLabel>
#include <QMenu>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <set>
#include <utility>

#include "ui/prompts/prompts_texts.h"
#include "ui/text.h"
#include "ui/theme/metrics.h"
#include "ui/theme/tokens.h"

namespace calyx::ui {

ctlRowGrid::ctlRowGrid(DocumentSession& session, GridModel* model, const QString& name)
    : ctlGrid(session, model, name), session_(session) {}

void ctlRowGrid::SetMovable(std::function<bool(int row)> movable) {
    movable_ = std::move(movable);
    // Room for the grip behind the title.
    setColumnWidth(0, columnWidth(0) + metrics::kIconSmall);
}

bool ctlRowGrid::IsMovable(int row) const {
    return movable_ && row >= 0 && row < Model().rowCount() && movable_(row);
}

void ctlRowGrid::MoveCurrent(int step) {
    const int from = currentIndex().row(), to = from + step;
    if (IsMovable(from) && IsMovable(to)) return emit MoveWanted(from, to);
    emit session_.Told(Say(session_.Context().texts, prompts_text::kNoFurther));
}

void ctlRowGrid::GoTo(int row, int column) {
    FinishEditor();
    setCurrentIndex(Model().index(row, column));
    scrollTo(currentIndex());
}

void ctlRowGrid::GoToAndEdit(int row, int column) {
    GoTo(row, column);
    setFocus();
    edit(currentIndex(), EditKeyPressed, nullptr);
}

std::vector<int> ctlRowGrid::ChosenRows() const {
    std::set<int> rows;
    for (const QModelIndex& index : selectionModel()->selectedIndexes()) rows.insert(index.row());
    if (rows.empty() && currentIndex().isValid()) rows.insert(currentIndex().row());
    return {rows.begin(), rows.end()};
}

bool ctlRowGrid::WholeRowsChosen() const {
    const QModelIndexList chosen = selectionModel()->selectedIndexes();
    if (chosen.isEmpty()) return currentIndex().isValid() && currentIndex().column() == 0;
    return std::all_of(chosen.begin(), chosen.end(), [](const auto& index) { return index.column() == 0; });
}

QWidget* ctlRowGrid::MakeBar(const std::vector<Command>& commands, int hint) {
    const ResourceTexts& texts = session_.Context().texts;
    auto* bar = new QWidget;
    auto* lines = new QVBoxLayout(bar);
    lines->setContentsMargins(0, 0, 0, 0);
    lines->setSpacing(metrics::kRelated);
    if (hint != 0) {
        auto* words = new QLabel(Say(texts, hint));
        words->setForegroundRole(role::kQuietText);
        words->setWordWrap(true);
        lines->addWidget(words);
    }
    auto* row = new QHBoxLayout;
    row->setSpacing(metrics::kRelated);
    lines->addLayout(row);
    for (const Command& command : commands) {
        auto* action = new QAction(PlainCaption(Say(texts, command.text)), this);
        action->setObjectName(QLatin1String(command.name) + QStringLiteral("Action"));
        action->setShortcut(command.keys);
        action->setShortcutContext(Qt::WidgetShortcut);
        connect(action, &QAction::triggered, this, command.act);
        addAction(action);
        commands_.push_back(action);
        auto* button = new QPushButton(Say(texts, command.text));
        button->setObjectName(QLatin1String(command.name));
        const QKeySequence& keys = command.keys.isEmpty() ? command.shown : command.keys;
        button->setToolTip(Say(texts, command.tip) +
                           (keys.isEmpty()
                                ? QString()
                                : QStringLiteral(" (%1)").arg(keys.toString(QKeySequence::NativeText))));
        button->setAutoDefault(false);
        connect(button, &QPushButton::clicked, this, command.act);
        row->addWidget(button);
    }
    row->addStretch(1);
    return bar;
}

void ctlRowGrid::Copy() {
    if (WholeRowsChosen()) return emit CopyRowsWanted();
    ctlGrid::Copy();
}

void ctlRowGrid::Paste() {
    if (WholeRowsChosen()) return emit PasteRowsWanted();
    ctlGrid::Paste();
}

void ctlRowGrid::ResetToDefault() {
    if (WholeRowsChosen()) return emit RemoveWanted();
    ctlGrid::ResetToDefault();
}

void ctlRowGrid::keyPressEvent(QKeyEvent* event) {
    if (gap_ >= 0 && event->key() == Qt::Key_Escape) return StopDragging();
    ctlGrid::keyPressEvent(event);
}

void ctlRowGrid::contextMenuEvent(QContextMenuEvent* event) {
    if (currentIndex().column() != 0 || commands_.empty()) return ctlGrid::contextMenuEvent(event);
    auto* menu = new QMenu(this);
    menu->setObjectName(QStringLiteral("menuRow"));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (QAction* command : commands_) menu->addAction(command);
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    menu->popup(byKey ? viewport()->mapToGlobal(visualRect(currentIndex()).bottomLeft())
                      : event->globalPos());
}

void ctlRowGrid::mousePressEvent(QMouseEvent* event) {
    ctlGrid::mousePressEvent(event);
    const QModelIndex index = indexAt(event->pos());
    const bool takes = event->button() == Qt::LeftButton && event->modifiers() == Qt::NoModifier &&
                       index.isValid() && index.column() == 0 && IsMovable(index.row());
    taken_ = takes ? index.row() : -1;
    pressed_ = event->pos();
}

void ctlRowGrid::mouseMoveEvent(QMouseEvent* event) {
    if (taken_ < 0) return ctlGrid::mouseMoveEvent(event);
    const int distance = (event->pos() - pressed_).manhattanLength();
    if (gap_ < 0 && distance < QApplication::startDragDistance()) return;
    viewport()->setCursor(Qt::ClosedHandCursor);
    if (const QModelIndex over = indexAt(event->pos()); over.isValid()) scrollTo(over);
    gap_ = GapAt(event->pos());
    viewport()->update();
}

void ctlRowGrid::mouseReleaseEvent(QMouseEvent* event) {
    const int from = taken_, gap = gap_;
    StopDragging();
    if (gap < 0) return ctlGrid::mouseReleaseEvent(event);
    const int to = gap > from ? gap - 1 : gap;
    if (to != from) emit MoveWanted(from, to);
}

void ctlRowGrid::StopDragging() {
    taken_ = gap_ = -1;
    viewport()->unsetCursor();
    viewport()->update();
}

int ctlRowGrid::GapAt(const QPoint& place) const {
    int gap = 0;
    for (int row = 0; row < Model().rowCount(); ++row) {
        if (IsMovable(row) && place.y() > rowViewportPosition(row) + rowHeight(row) / 2) gap = row + 1;
    }
    return gap;
}

void ctlRowGrid::paintEvent(QPaintEvent* event) {
    ctlGrid::paintEvent(event);
    if (!movable_) return;
    QPainter painter(viewport());
    painter.setRenderHint(QPainter::Antialiasing);
    // A grip of six dots at the end of the first column.
    constexpr double kDot = 1.25, kApart = 5;
    painter.setPen(Qt::NoPen);
    for (int row = 0; row < Model().rowCount(); ++row) {
        const QRect cell = visualRect(Model().index(row, 0));
        if (!IsMovable(row) || !cell.intersects(viewport()->rect())) continue;
        const bool chosen = selectionModel()->isSelected(Model().index(row, 0));
        painter.setBrush(palette().color(chosen ? role::kOnAccent : role::kQuietText));
        const QPointF middle(cell.right() - metrics::kRelated - kApart / 2, cell.center().y() + 0.5);
        for (const double x : {-kApart / 2, kApart / 2}) {
            for (const double y : {-kApart, 0.0, kApart}) {
                painter.drawEllipse(middle + QPointF(x, y), kDot, kDot);
            }
        }
    }
    if (gap_ < 0) return;
    const int last = Model().rowCount() - 1;
    const int y = gap_ > last ? rowViewportPosition(last) + rowHeight(last) : rowViewportPosition(gap_);
    painter.fillRect(QRectF(0, y - 1.5, viewport()->width(), 3), palette().color(role::kAccent));
}

}  // namespace calyx::ui
