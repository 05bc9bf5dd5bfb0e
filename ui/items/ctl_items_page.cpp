#include "ui/items/ctl_items_page.h"

#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QStackedWidget>
#include <QToolButton>
#include <QTreeView>
#include <QVBoxLayout>

#include "ui/items/items_model.h"
#include "ui/text.h"
#include "ui/texts.h"
#include "ui/theme/icons.h"
#include "ui/theme/metrics.h"
#include "ui/theme/theme.h"

namespace calyx::ui {

ctlItemsPage::ctlItemsPage(DocumentSession& session, const Place& place, MakeItemPage makePage)
    : session_(session),
      place_(place),
      makePage_(std::move(makePage)),
      model_(new ItemsModel(session, place, this)),
      view_(new QTreeView),
      stack_(new QStackedWidget),
      title_(new QLabel),
      previous_(new QToolButton),
      next_(new QToolButton) {
    stack_->addWidget(MakeList());
    stack_->addWidget(MakeEmptyState());
    stack_->addWidget(MakeDetail());
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->addWidget(stack_);
    setFocusProxy(view_);
    connect(&session_, &DocumentSession::Changed, this, &ctlItemsPage::Follow);
    connect(&session_, &DocumentSession::Settled, this, &ctlItemsPage::Follow);
    connect(&session_, &DocumentSession::Saved, this, &ctlItemsPage::Follow);
    connect(&session_, &DocumentSession::Replaced, this, &ctlItemsPage::Follow);
    const auto shortcut = [this](const QKeySequence& keys, auto&& act) {
        auto* made = new QShortcut(keys, this);
        made->setContext(Qt::WidgetWithChildrenShortcut);
        connect(made, &QShortcut::activated, this, act);
    };
    shortcut(QKeySequence(Qt::ALT | Qt::Key_Up), [this] { Walk(-1); });
    shortcut(QKeySequence(Qt::ALT | Qt::Key_Down), [this] { Walk(1); });
    shortcut(QKeySequence(Qt::ALT | Qt::Key_Left), [this] { BackToList(); });
    Refresh();
}

QWidget* ctlItemsPage::MakeList() {
    const ResourceTexts& texts = session_.Context().texts;
    view_->setObjectName(QStringLiteral("itemList"));
    view_->setAccessibleName(Say(texts, place_.title));
    view_->setModel(model_);
    view_->setRootIsDecorated(false);
    view_->setUniformRowHeights(true);
    view_->setAllColumnsShowFocus(true);
    view_->setFont(FiguresFont());
    view_->header()->setStretchLastSection(true);
    connect(view_, &QTreeView::activated, this,
            [this](const QModelIndex& index) { Open(model_->At(index.row())); });
    auto* list = new QWidget;
    auto* column = new QVBoxLayout(list);
    column->setContentsMargins(metrics::kPageEdge, metrics::kRelated, metrics::kPageEdge, metrics::kPageEdge);
    column->addWidget(view_);
    return list;
}

QWidget* ctlItemsPage::MakeEmptyState() {
    const ResourceTexts& texts = session_.Context().texts;
    auto* what = new QLabel(place_.empty == 0 ? QString() : Say(texts, place_.empty));
    what->setWordWrap(true);
    auto* go = new QPushButton(Say(texts, say::kGoToHardware));
    go->setObjectName(QStringLiteral("cmdHardware"));
    connect(go, &QPushButton::clicked, this, [this] { emit ParameterWanted(QStringLiteral("HARDWARE")); });
    auto* empty = new QWidget;
    auto* column = new QVBoxLayout(empty);
    column->setContentsMargins(metrics::kPageEdge, metrics::kPageEdge, metrics::kPageEdge,
                               metrics::kPageEdge);
    column->setSpacing(metrics::kGroups);
    column->addWidget(what);
    column->addWidget(go, 0, Qt::AlignLeft);
    column->addStretch(1);
    return empty;
}

QWidget* ctlItemsPage::MakeDetail() {
    const ResourceTexts& texts = session_.Context().texts;
    auto* back = new QToolButton;
    back->setObjectName(QStringLiteral("cmdBack"));
    back->setText(Say(texts, say::kBackToList, Say(texts, place_.title)));
    back->setIcon(Icon(IconName::Previous));
    back->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    back->setAutoRaise(true);
    back->setToolTip(QKeySequence(Qt::ALT | Qt::Key_Left).toString(QKeySequence::NativeText));
    connect(back, &QToolButton::clicked, this, &ctlItemsPage::BackToList);
    title_->setObjectName(QStringLiteral("itemTitle"));
    title_->setFont(StrongFont());
    const auto set = [&](QToolButton* button, const char* name, IconName icon, int words, int step, int key) {
        button->setObjectName(QLatin1String(name));
        button->setIcon(Icon(icon));
        button->setAutoRaise(true);
        button->setMinimumSize(metrics::kControlHeight, metrics::kControlHeight);
        const QString keys = QKeySequence(Qt::ALT | key).toString(QKeySequence::NativeText);
        button->setToolTip(Say(texts, words) + QStringLiteral(" (") + keys + QLatin1Char(')'));
        button->setAccessibleName(Say(texts, words));
        connect(button, &QToolButton::clicked, this, [this, step] { Walk(step); });
    };
    set(previous_, "cmdPrevious", IconName::Previous, say::kPreviousItem, -1, Qt::Key_Up);
    set(next_, "cmdNext", IconName::Next, say::kNextItem, 1, Qt::Key_Down);
    auto* bar = new QHBoxLayout;
    bar->setContentsMargins(metrics::kPageEdge - metrics::kRelated, 0, metrics::kPageEdge, metrics::kHalf);
    bar->setSpacing(metrics::kRelated);
    bar->addWidget(back);
    bar->addWidget(title_, 1);
    bar->addWidget(previous_);
    bar->addWidget(next_);
    auto* detail = new QWidget;
    pageRoom_ = new QVBoxLayout(detail);
    pageRoom_->setContentsMargins(0, 0, 0, 0);
    pageRoom_->setSpacing(0);
    pageRoom_->addLayout(bar);
    return detail;
}

void ctlItemsPage::Follow() {
    stale_ = true;
    if (isVisible()) Refresh();
}

void ctlItemsPage::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (stale_) Refresh();
    emit ItemShown(opened_);
}

void ctlItemsPage::Refresh() {
    stale_ = false;
    const QModelIndex current = view_->currentIndex();
    const bool first = model_->rowCount() == 0;
    model_->Refresh();
    if (model_->columnCount() > 0) {
        // Numbers at the far edge would stand alone.
        const bool figures = model_->AlignmentOf(model_->columnCount() - 1).testFlag(Qt::AlignRight);
        view_->header()->setStretchLastSection(!figures);
    }
    if (first) {
        for (int column = 0; column < model_->columnCount(); ++column) view_->resizeColumnToContents(column);
    }
    if (!view_->currentIndex().isValid() && model_->rowCount() > 0) {
        view_->setCurrentIndex(model_->index(std::clamp(current.row(), 0, model_->rowCount() - 1), 0));
    }
    // The item may have gone with its card.
    if (opened_ && model_->Find(*opened_) < 0) return BackToList();
    if (opened_) {
        ShowPlace(model_->Find(*opened_));
    } else {
        stack_->setCurrentIndex(model_->rowCount() == 0 ? 1 : 0);
    }
}

void ctlItemsPage::Open(const ItemRef& item) {
    if (stale_) Refresh();
    const int row = model_->Find(item);
    if (row < 0) return;
    view_->setCurrentIndex(model_->index(row, 0));
    if (opened_ != item) {
        DropPage();
        opened_ = item;
        page_ = makePage_(item);
        pageRoom_->addWidget(page_.widget, 1);
        if (!differing_.empty()) page_.setDiffering(differing_);
    }
    ShowPlace(row);
    stack_->setCurrentIndex(2);
    setFocusProxy(page_.widget);
    page_.widget->setFocus();
    emit ItemShown(opened_);
}

std::optional<ItemRef> ctlItemsPage::Current() const {
    if (opened_) return opened_;
    const QModelIndex chosen = view_->currentIndex();
    return chosen.isValid() ? std::optional(model_->At(chosen.row())) : std::nullopt;
}

void ctlItemsPage::ShowPlace(int row) {
    title_->setText(model_->TitleAt(row));
    previous_->setEnabled(row > 0);
    next_->setEnabled(row + 1 < model_->rowCount());
}

void ctlItemsPage::DropPage() {
    if (page_.widget != nullptr) page_.widget->deleteLater();
    if (page_.widget != nullptr) page_.widget->hide();
    page_ = {};
    opened_.reset();
}

void ctlItemsPage::Walk(int step) {
    if (!opened_) return;
    const int row = model_->Find(*opened_) + step;
    if (row >= 0 && row < model_->rowCount()) Open(model_->At(row));
}

void ctlItemsPage::BackToList() {
    DropPage();
    setFocusProxy(view_);
    stack_->setCurrentIndex(model_->rowCount() == 0 ? 1 : 0);
    if (isVisible()) view_->setFocus();
    emit ItemShown(std::nullopt);
}

bool ctlItemsPage::FocusKey(const QString& key) {
    if (stale_) Refresh();
    const int row = model_->FindKey(key);
    if (row < 0) return false;
    if (!opened_ || *opened_ != model_->At(row)) Open(model_->At(row));
    return page_.focusKey(key);
}

void ctlItemsPage::SetDiffering(const std::set<std::string>& keys) {
    differing_ = keys;
    if (page_.widget != nullptr) page_.setDiffering(keys);
}

}  // namespace calyx::ui
