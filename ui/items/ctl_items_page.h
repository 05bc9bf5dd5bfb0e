#pragma once

#include <QWidget>
#include <functional>
#include <optional>
#include <set>
#include <string>

#include "ui/form/item_ref.h"
#include "ui/window/page_factory.h"

class QLabel;
class QStackedWidget;
class QToolButton;
class QTreeView;
class QVBoxLayout;

namespace calyx::ui {

class ItemsModel;

// The page of a collection: a list of its items with the columns that matter, and the page of the one
// that was opened. Enter or a double click opens, Alt+Left goes back to the list, Alt+Up and Alt+Down
// walk the items.
class ctlItemsPage : public QWidget {
    Q_OBJECT

  public:
    using MakeItemPage = std::function<Page(const ItemRef& item)>;

    ctlItemsPage(DocumentSession& session, const Place& place, MakeItemPage makePage);

    bool FocusKey(const QString& key);
    void SetDiffering(const std::set<std::string>& keys);
    void Open(const ItemRef& item);
    const std::optional<ItemRef>& Opened() const { return opened_; }
    std::optional<ItemRef> Current() const;  // opened, or chosen in the list

  signals:
    void ItemShown(const std::optional<calyx::ui::ItemRef>& item);  // nothing: the list
    void ParameterWanted(const QString& key);

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    QWidget* MakeList();
    QWidget* MakeEmptyState();
    QWidget* MakeDetail();
    void Follow();
    void Refresh();
    void ShowPlace(int row);
    void Walk(int step);
    void BackToList();
    void DropPage();

    DocumentSession& session_;
    const Place& place_;
    MakeItemPage makePage_;
    ItemsModel* model_;
    QTreeView* view_;
    QStackedWidget* stack_;
    QLabel* title_;
    QToolButton *previous_, *next_;
    QVBoxLayout* pageRoom_;
    std::optional<ItemRef> opened_;
    Page page_;  // of the item that is open
    std::set<std::string> differing_;
    bool stale_ = true;  // a page out of sight does not follow every edit
};

}  // namespace calyx::ui
