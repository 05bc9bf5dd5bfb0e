#include "ui/window/ctl_kept_page.h"

#include <QApplication>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QStackedWidget>
#include <QTreeView>
#include <QVBoxLayout>

#include "ui/text.h"
#include "ui/texts.h"
#include "ui/theme/metrics.h"
#include "ui/theme/theme.h"
#include "ui/window/kept_model.h"

namespace calyx::ui {

namespace {

// What a place is for, by its title.
QString PurposeOf(const ResourceTexts& texts, const Place& place) {
    const struct {
        int title, purpose;
    } all[] = {{2121, say::kForHardware}, {say::kPorts, say::kForPorts}, {2122, say::kForScales},
               {2127, say::kForBoxes},    {2125, say::kForSetpoints},    {2123, say::kForTickets},
               {2124, say::kForScreens},  {2128, say::kForFieldbus},     {2120, say::kForPrompts},
               {2126, say::kForCustom}};
    for (const auto& one : all) {
        if (one.title == place.title) return Say(texts, one.purpose);
    }
    return {};
}

}  // namespace

ctlKeptPage::ctlKeptPage(DocumentSession& session, const Place& place)
    : session_(session),
      place_(place),
      model_(new KeptModel(session, place, this)),
      view_(new QTreeView),
      count_(new QLabel),
      stack_(new QStackedWidget) {
    const ResourceTexts& texts = session.Context().texts;
    view_->setObjectName(QStringLiteral("keptList"));
    view_->setAccessibleName(Say(texts, say::kKeptListName, Say(texts, place.title)));
    view_->setModel(model_);
    view_->setRootIsDecorated(false);
    view_->setUniformRowHeights(true);
    view_->setAllColumnsShowFocus(true);
    view_->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed |
                           QAbstractItemView::AnyKeyPressed);
    view_->header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    view_->header()->setStretchLastSection(true);
    count_->setWordWrap(true);
    count_->setForegroundRole(role::kQuietText);

    auto* lines = new QWidget;
    auto* column = new QVBoxLayout(lines);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(metrics::kGroups);
    column->addWidget(count_);
    column->addWidget(view_, 1);
    stack_->addWidget(lines);
    stack_->addWidget(MakeEmptyState());
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(metrics::kPageEdge, 0, metrics::kPageEdge, metrics::kPageEdge);
    all->addWidget(stack_);

    connect(&session_, &DocumentSession::Changed, this, &ctlKeptPage::BecomeStale);
    connect(&session_, &DocumentSession::Replaced, this, &ctlKeptPage::BecomeStale);
    connect(&session_, &DocumentSession::Saved, this, &ctlKeptPage::BecomeStale);
    // A value that is still being edited in its row is taken when the list gets the keys.
    connect(&session_, &DocumentSession::Finishing, this, [this] {
        QWidget* focus = QApplication::focusWidget();
        if (focus != nullptr && focus != view_ && view_->isAncestorOf(focus)) view_->setFocus();
    });
    connect(view_->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this](const QModelIndex& now) {
                if (view_->hasFocus() && now.isValid()) emit KeyFocused(model_->KeyAt(now.row()));
            });
}

void ctlKeptPage::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (stale_) Refresh();
}

void ctlKeptPage::BecomeStale() {
    stale_ = true;
    if (isVisible()) Refresh();
}

QWidget* ctlKeptPage::MakeEmptyState() {
    const ResourceTexts& texts = session_.Context().texts;
    auto* state = new QWidget;
    auto* what = new QLabel(PurposeOf(texts, place_));
    what->setWordWrap(true);
    auto* hint = new QLabel(Say(texts, say::kKeptEmpty, Say(texts, place_.title)) + QLatin1Char(' ') +
                            Say(texts, say::kKeptEmptyHint));
    hint->setForegroundRole(role::kQuietText);
    hint->setWordWrap(true);
    auto* open = new QPushButton(Say(texts, say::kOpenFile));
    auto* read = new QPushButton(Say(texts, say::kReadIndicator));
    connect(open, &QPushButton::clicked, this, &ctlKeptPage::OpenWanted);
    connect(read, &QPushButton::clicked, this, &ctlKeptPage::ReadWanted);
    auto* steps = new QHBoxLayout;
    steps->setSpacing(metrics::kRelated);
    steps->addWidget(open);
    steps->addWidget(read);
    steps->addStretch();
    auto* column = new QVBoxLayout(state);
    column->setContentsMargins(0, metrics::kRelated, 0, 0);
    column->setSpacing(metrics::kRelated);
    column->addWidget(what);
    column->addWidget(hint);
    column->addSpacing(metrics::kRelated);
    column->addLayout(steps);
    column->addStretch();
    return state;
}

bool ctlKeptPage::FocusKey(const QString& key) {
    if (stale_) Refresh();
    const int row = model_->Find(key);
    if (row < 0) return false;
    view_->setFocus();
    view_->setCurrentIndex(model_->index(row, 1));
    view_->scrollTo(model_->index(row, 1), QAbstractItemView::PositionAtCenter);
    return true;
}

void ctlKeptPage::Refresh() {
    stale_ = false;
    model_->Refresh();
    const int count = model_->rowCount();
    stack_->setCurrentIndex(count > 0 ? 0 : 1);
    const ResourceTexts& texts = session_.Context().texts;
    count_->setText(count == 1 ? Say(texts, say::kKeptCountOne)
                               : Say(texts, say::kKeptCount, QString::number(count)));
}

}  // namespace calyx::ui
