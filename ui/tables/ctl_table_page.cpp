#include "ui/tables/ctl_table_page.h"

#include <QApplication>
#include <QScopedValueRollback>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace calyx::ui {

ctlTablePage::ctlTablePage(ctlItemTable* table, ctlItemsPage* items)
    : table_(table), items_(items), stack_(new QStackedWidget) {
    stack_->addWidget(table_);
    stack_->addWidget(items_);
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->addWidget(stack_);
    setFocusProxy(&table_->Grid());
    connect(table_, &ctlItemTable::OpenWanted, this, &ctlTablePage::Open);
    connect(table_, &ctlItemTable::ParameterWanted, this, &ctlTablePage::FocusKey);
    connect(items_, &ctlItemsPage::ItemShown, this, [this](const std::optional<ItemRef>& item) {
        if (item) return emit ItemShown(item);
        if (!opening_ && stack_->currentWidget() == items_) ShowTable();
    });
}

void ctlTablePage::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (stack_->currentWidget() == table_) emit ItemShown(std::nullopt);
}

void ctlTablePage::ShowTable() {
    stack_->setCurrentWidget(table_);
    setFocusProxy(&table_->Grid());
    if (isVisible()) table_->Grid().setFocus();
    emit ItemShown(std::nullopt);
}

void ctlTablePage::Open(int number) {
    const int row = table_->Grid().currentIndex().row();
    if (number == 0 || row < 0) return;
    ItemRef item = table_->Grid().Model().RowAt(row).item;
    item.number = number;
    {
        const QScopedValueRollback<bool> opening(opening_, true);
        stack_->setCurrentWidget(items_);
        items_->Open(item);
    }
    setFocusProxy(items_);
}

bool ctlTablePage::IsInTable() const {
    const QWidget* focus = QApplication::focusWidget();
    return stack_->currentWidget() == table_ && focus != nullptr && table_->isAncestorOf(focus);
}

bool ctlTablePage::FocusKey(const QString& key) {
    const int number = table_->NumberOf(key);
    if (IsInTable() && sender() != table_) {
        table_->GoTo(number);
        if (!table_->Grid().FocusKey(key)) table_->Grid().setFocus();
        return true;
    }
    const QScopedValueRollback<bool> opening(opening_, true);
    stack_->setCurrentWidget(items_);
    const bool found = items_->FocusKey(key);
    if (!items_->Opened()) {
        ShowTable();
        return false;
    }
    table_->GoTo(number);
    setFocusProxy(items_);
    return found;
}

void ctlTablePage::SetDiffering(const std::set<std::string>& keys) {
    table_->Grid().SetDiffering(keys);
    items_->SetDiffering(keys);
}

}  // namespace calyx::ui
