#pragma once

#include <QStyledItemDelegate>

#include "ui/items/grid_model.h"

namespace calyx::ui {

// Edits the cells of a grid with the controls of the forms: typed values are judged while typing, and
// what is wrong is told below the cell.
class GridDelegate : public QStyledItemDelegate {
    Q_OBJECT

  public:
    GridDelegate(GridModel& model, const ResourceTexts& texts, QObject* parent)
        : QStyledItemDelegate(parent), model_(model), texts_(texts) {}

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

  protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    int WidthOf(const form::Parameter& parameter, const QFont& font) const;
    bool HoldsKey(QWidget* editor, QEvent* event);
    void Close(QWidget* editor, EndEditHint hint);  // RevertModelCache: without taking the value

    GridModel& model_;
    const ResourceTexts& texts_;
};

}  // namespace calyx::ui
