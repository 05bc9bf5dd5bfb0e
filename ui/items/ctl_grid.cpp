#include "ui/items/ctl_grid.h"

#include <QClipboard>
#include <QComboBox>
#include <QGuiApplication>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QMenu>
#include <algorithm>

#include "ui/form/firmware_dialog.h"
#include "ui/form/flash.h"
#include "ui/form/form_texts.h"
#include "ui/form/help_popup.h"
#include "ui/items/grid_delegate.h"
#include "ui/items/items_texts.h"
#include "ui/text.h"
#include "ui/theme/metrics.h"
#include "ui/theme/theme.h"

namespace calyx::ui {

ctlGrid::ctlGrid(DocumentSession& session, GridModel* model, const QString& name)
    : session_(session), model_(model) {
    model_->setParent(this);
    setModel(model_);
    setItemDelegate(new GridDelegate(*model_, session.Context().texts, this));
    setAccessibleName(name);
    setFont(FiguresFont());
    setTabKeyNavigation(false);  // a hundred rows of cells would stand between two controls
    setEditTriggers(DoubleClicked | EditKeyPressed | AnyKeyPressed);
    setSelectionMode(ExtendedSelection);
    setCornerButtonEnabled(false);
    setWordWrap(false);
    setShowGrid(false);  // the delegate draws it
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(metrics::kControlHeight);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setStretchLastSection(true);
    setHorizontalScrollMode(ScrollPerPixel);
    connect(&session_, &DocumentSession::Changed, this, &ctlGrid::Follow);
    connect(&session_, &DocumentSession::Settled, this, &ctlGrid::Follow);
    connect(&session_, &DocumentSession::Saved, this, &ctlGrid::Follow);
    connect(&session_, &DocumentSession::Replaced, this, [this] {
        model_->GiveUpAll();
        Follow();
    });
    connect(&session_, &DocumentSession::Finishing, this, [this](QStringList* wrong) {
        FinishEditor();
        model_->AddUntaken(*wrong);
    });
    connect(&session_, &DocumentSession::GivingUp, model_, &GridModel::GiveUpAll);
    connect(model_, &QAbstractItemModel::modelReset, this, &ctlGrid::SpanHeadings);
    connect(this, &QTableView::doubleClicked, this, [this](const QModelIndex& index) {
        if (!(index.flags() & Qt::ItemIsEditable)) Activate(index);
    });
    Refresh();
    FitColumns();
}

void ctlGrid::Follow() {
    stale_ = true;
    if (isVisible()) Refresh();
}

void ctlGrid::showEvent(QShowEvent* event) {
    QTableView::showEvent(event);
    if (stale_) Refresh();
}

void ctlGrid::Refresh() {
    stale_ = false;
    const QModelIndex before = currentIndex();
    const QString key = KeyText(model_->KeyAt(before));
    model_->Refresh();
    if (currentIndex().isValid()) return;
    QModelIndex next = key.isEmpty() ? QModelIndex() : model_->Find(key);
    for (int row = 0; !next.isValid() && row < model_->rowCount(); ++row) {
        if (!model_->IsHeading(row)) next = model_->index(row, 1);
    }
    setCurrentIndex(next);
}

void ctlGrid::SpanHeadings() {
    clearSpans();
    for (int row = 0; row < model_->rowCount(); ++row) {
        if (model_->IsHeading(row)) setSpan(row, 0, 1, model_->columnCount());
    }
}

void ctlGrid::FitColumns() {
    // Headings span the columns and do not widen the first.
    const int last = model_->columnCount() - 1;
    for (int column = 0; column < last; ++column) {
        int width = horizontalHeader()->sectionSizeHint(column);
        for (int row = 0; row < model_->rowCount(); ++row) {
            if (!model_->IsHeading(row))
                width = std::max(width, sizeHintForIndex(model_->index(row, column)).width());
        }
        setColumnWidth(column, width + metrics::kRelated);
    }
}

bool ctlGrid::FocusKey(const QString& key) {
    if (stale_) Refresh();
    const QModelIndex index = model_->Find(key);
    if (!index.isValid()) return false;
    // Not setCurrentIndex, which would leave a selection alone while Ctrl is held.
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
    scrollTo(index, PositionAtCenter);
    setFocus(Qt::OtherFocusReason);
    return true;
}

std::optional<ItemRef> ctlGrid::CurrentItem() const {
    const QModelIndex index = currentIndex();
    return index.isValid() ? std::optional(model_->RowAt(index.row()).item) : std::nullopt;
}

void ctlGrid::FinishEditor() {
    QWidget* editor = indexWidget(currentIndex());
    if (editor == nullptr && state() == EditingState) editor = QApplication::focusWidget();
    if (editor == nullptr || !viewport()->isAncestorOf(editor)) return;
    commitData(editor);
    QTableView::closeEditor(editor, QAbstractItemDelegate::NoHint);
}

void ctlGrid::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTableView::currentChanged(current, previous);
    if (!steered_) anchor_ = current;
    if (!hasFocus() && !viewport()->isAncestorOf(QApplication::focusWidget())) return;
    if (const std::string key = model_->KeyAt(current); !key.empty()) emit KeyFocused(KeyText(key));
}

// From an editor Tab goes on without opening the next one, Enter goes down.
void ctlGrid::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) {
    const bool next = hint == QAbstractItemDelegate::EditNextItem;
    const bool previous = hint == QAbstractItemDelegate::EditPreviousItem;
    const bool enter = hint == QAbstractItemDelegate::SubmitModelCache;
    QTableView::closeEditor(editor, next || previous ? QAbstractItemDelegate::NoHint : hint);
    if (next || previous) Walk(next);
    if (enter) setCurrentIndex(moveCursor(MoveDown, Qt::NoModifier));
}

bool ctlGrid::edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) {
    const bool wanted = trigger == DoubleClicked || trigger == EditKeyPressed || trigger == AnyKeyPressed;
    if (wanted && model_->IsAbsent(index))
        emit session_.Told(Say(session_.Context().texts, items_text::kNotUsedHere));
    if (!QTableView::edit(index, trigger, event)) return false;
    if (auto* box = wanted ? qobject_cast<QComboBox*>(indexWidget(index)) : nullptr) box->showPopup();
    return true;
}

void ctlGrid::Activate(const QModelIndex& index) {
    if (const QString key = model_->GoToOf(index); !key.isEmpty()) emit ParameterWanted(key);
}

bool ctlGrid::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride) {
        const auto* key = static_cast<QKeyEvent*>(event);
        const bool untaken = !model_->Untaken(currentIndex()).isNull();
        const bool back = untaken && (key->matches(QKeySequence::Undo) || key->key() == Qt::Key_Escape);
        if (key->key() == Qt::Key_F1 || key->matches(QKeySequence::Copy) ||
            key->matches(QKeySequence::Paste) || back) {
            event->accept();
            return true;
        }
    }
    return QTableView::event(event);
}

void ctlGrid::keyPressEvent(QKeyEvent* event) {
    const QModelIndex current = currentIndex();
    const bool untaken = !model_->Untaken(current).isNull();
    if (event->key() == Qt::Key_F1) return ShowHelp();
    if (event->matches(QKeySequence::Copy)) return Copy();
    if (event->matches(QKeySequence::Paste)) return Paste();
    if (event->key() == Qt::Key_Delete || event->key() == Qt::Key_Backspace) return ResetToDefault();
    if (untaken && (event->matches(QKeySequence::Undo) || event->key() == Qt::Key_Escape))
        return model_->GiveUp(current);
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && state() != EditingState && event->modifiers() == Qt::NoModifier) {
        if (!edit(current, EditKeyPressed, event)) Activate(current);
        return;
    }
    Steer(event->modifiers(), [&] { QTableView::keyPressEvent(event); });
}

void ctlGrid::mousePressEvent(QMouseEvent* event) {
    Steer(event->modifiers(), [&] { QTableView::mousePressEvent(event); });
}

void ctlGrid::mouseMoveEvent(QMouseEvent* event) {
    Steer(Qt::ShiftModifier, [&] { QTableView::mouseMoveEvent(event); });  // it only extends
}

void ctlGrid::Steer(Qt::KeyboardModifiers modifiers, const std::function<void()>& act) {
    if (!modifiers.testFlag(Qt::ShiftModifier)) anchor_ = QModelIndex();
    steered_ = true;
    act();
    steered_ = false;
}

// The view itself remembers only where a key or the mouse has begun a selection.
void ctlGrid::setSelection(const QRect& rect, QItemSelectionModel::SelectionFlags command) {
    const bool goesOn = anchor_.isValid() && command.testFlag(QItemSelectionModel::Current);
    QTableView::setSelection(
        goesOn ? QRect(visualRect(anchor_).center(), visualRect(currentIndex()).center()) : rect, command);
}

// To the next cell that can be edited, if there is one.
void ctlGrid::Walk(bool forward) {
    const int columns = model_->columnCount(), cells = columns * model_->rowCount();
    const QModelIndex current = currentIndex();
    const int step = forward ? 1 : -1;
    for (int at = current.row() * columns + current.column() + step; at >= 0 && at < cells; at += step) {
        const QModelIndex index = model_->index(at / columns, at % columns);
        if (!(index.flags() & (Qt::ItemIsEditable | Qt::ItemIsUserCheckable))) continue;
        return setCurrentIndex(index);
    }
}

QModelIndexList ctlGrid::Chosen() const {
    QModelIndexList chosen = selectionModel()->selectedIndexes();
    if (chosen.isEmpty() && currentIndex().isValid()) chosen += currentIndex();
    return chosen;
}

void ctlGrid::Copy() {
    QGuiApplication::clipboard()->setText(model_->Copy(Chosen()));
}

void ctlGrid::Paste() {
    const QString text = QGuiApplication::clipboard()->text();
    if (text.isEmpty()) return emit session_.Told(Say(session_.Context().texts, items_text::kNothingToPaste));
    model_->Paste(Chosen(), text);
}

void ctlGrid::ResetToDefault() {
    model_->ResetToDefault(Chosen());
}

void ctlGrid::ShowHelp() {
    const QModelIndex index = currentIndex();
    const QString help = index.data(Qt::ToolTipRole).toString();
    if (help.isEmpty()) return;
    (new form::HelpPopup(model_->NameOf(index), help, this))->Open();
}

void ctlGrid::CopyAsLine() {
    const auto parameter = model_->ParameterAt(currentIndex());
    if (!parameter) return;
    QStringList lines;
    for (const KeyValue& line : parameter->Lines()) lines += ShownValue(line.key + "=" + line.value);
    QGuiApplication::clipboard()->setText(lines.join(QLatin1Char('\n')));
}

void ctlGrid::ShowFirmware() {
    if (const auto parameter = model_->ParameterAt(currentIndex()))
        (new form::FirmwareDialog(session_.Context().texts, *parameter, window()))->open();
}

void ctlGrid::contextMenuEvent(QContextMenuEvent* event) {
    const ResourceTexts& texts = session_.Context().texts;
    auto* menu = new QMenu(this);
    menu->setObjectName(QStringLiteral("menuCell"));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const auto add = [&](int text, const QKeySequence& keys, auto&& act) {
        QAction* action = menu->addAction(Say(texts, text));
        action->setShortcut(keys);
        connect(action, &QAction::triggered, this, act);
    };
    const QModelIndex index = currentIndex();
    add(items_text::kMenuEdit, Qt::Key_F2, [this] { edit(currentIndex(), EditKeyPressed, nullptr); });
    menu->addSeparator();
    add(form::kCopy, QKeySequence::Copy, &ctlGrid::Copy);
    add(form::kPaste, QKeySequence::Paste, &ctlGrid::Paste);
    add(form::kMenuDefault, Qt::Key_Delete, &ctlGrid::ResetToDefault);
    if (model_->ParameterAt(index)) {
        menu->addSeparator();
        add(form::kMenuHelp, Qt::Key_F1, &ctlGrid::ShowHelp);
        add(form::kMenuCopy, {}, &ctlGrid::CopyAsLine);
        add(form::kMenuLines, {}, [this] { emit ShowInLines(KeyText(model_->KeyAt(currentIndex()))); });
        add(form::kMenuFirmware, {}, &ctlGrid::ShowFirmware);
    }
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    menu->popup(byKey ? viewport()->mapToGlobal(visualRect(index).bottomLeft()) : event->globalPos());
}

}  // namespace calyx::ui
