#include "ui/window/ctl_find.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QStandardItemModel>
#include <QVBoxLayout>
#include <algorithm>

#include "model/language/text.h"
#include "ui/text.h"
#include "ui/texts.h"
#include "ui/theme/icons.h"
#include "ui/theme/metrics.h"
#include "ui/theme/theme.h"
#include "ui/window/find_popup.h"
#include "ui/window/hit_delegate.h"

namespace calyx::ui {

namespace {

constexpr int kBoxWidth = 300;
constexpr int kPopupWidth = 460;
constexpr int kMostRows = 9;  // seen at once

}  // namespace

ctlFind::ctlFind(DocumentSession& session, QWidget* window)
    : session_(session),
      popup_(new FindPopup(window)),
      filterRow_(new QWidget),
      list_(new QListView),
      note_(new QLabel),
      model_(new QStandardItemModel(this)) {
    const ResourceTexts& texts = session.Context().texts;
    setObjectName(QStringLiteral("ctlFind"));
    setPlaceholderText(Say(texts, say::kFindHint) + QStringLiteral("  (Ctrl+K)"));
    setAccessibleName(Say(texts, say::kFindName));
    setClearButtonEnabled(true);
    addAction(Icon(IconName::Find), QLineEdit::LeadingPosition);

    popup_->setObjectName(QStringLiteral("findPopup"));
    list_->setObjectName(QStringLiteral("findList"));
    list_->setAccessibleName(Say(texts, say::kFindName));
    list_->setModel(model_);
    list_->setItemDelegate(new HitDelegate(list_));
    list_->setFrameShape(QFrame::NoFrame);
    list_->setFocusPolicy(Qt::NoFocus);  // the keys stay with the box
    list_->setUniformItemSizes(true);
    list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    note_->setForegroundRole(role::kQuietText);
    note_->setFont(TextFont(TextSize::Small));
    note_->setMargin(metrics::kRelated);
    note_->setWordWrap(true);
    auto* column = new QVBoxLayout(popup_);
    column->setContentsMargins(1, 1, 1, 1);
    column->setSpacing(0);
    MakeFilters();
    column->addWidget(filterRow_);
    column->addWidget(list_);
    column->addWidget(note_);
    popup_->hide();

    const auto stale = [this] { stale_ = true; };
    connect(&session_, &DocumentSession::Changed, this, stale);
    connect(&session_, &DocumentSession::Replaced, this, stale);
    connect(&session_, &DocumentSession::Settled, this, stale);
    connect(&session_, &DocumentSession::Saved, this, stale);
    connect(this, &QLineEdit::textEdited, this, &ctlFind::Search);
    connect(list_, &QListView::clicked, this, &ctlFind::Choose);
}

void ctlFind::MakeFilters() {
    auto* row = new QHBoxLayout(filterRow_);
    row->setContentsMargins(metrics::kRelated, metrics::kRelated, metrics::kRelated, metrics::kRelated);
    row->setSpacing(metrics::kRelated);
    for (const int caption : {say::kFilterChanged, say::kFilterNotDefault, say::kFilterProblems}) {
        auto* filter = new QPushButton(Say(session_.Context().texts, caption));
        filter->setObjectName(QStringLiteral("findFilter%1").arg(filters_.size()));
        filter->setCheckable(true);
        filter->setAutoDefault(false);
        filter->setFocusPolicy(Qt::TabFocus);  // a click leaves the keys with the box
        filter->installEventFilter(this);
        connect(filter, &QPushButton::toggled, this, &ctlFind::Search);
        row->addWidget(filter);
        filters_.append(filter);
    }
    row->addStretch();
}

unsigned ctlFind::Filters() const {
    unsigned chosen = 0;
    for (qsizetype i = 0; i < filters_.size(); ++i) {
        if (filters_[i]->isChecked()) chosen |= 1u << i;
    }
    return chosen;
}

Finder::Marks ctlFind::Marks() const {
    Finder::Marks marks;
    const ChangeSet sinceSave = session_.ChangesSinceSave();
    for (const Change& change : sinceSave.Changes()) marks.changed.insert(Upper(change.key));
    session_.Settle();
    for (const BrokenRule& rule : session_.Problems()) marks.problems.insert(Upper(rule.key));
    return marks;
}

QSize ctlFind::sizeHint() const {
    return {kBoxWidth, QLineEdit::sizeHint().height()};
}

void ctlFind::Begin() {
    setFocus(Qt::ShortcutFocusReason);
    selectAll();
}

int ctlFind::HitCount() const {
    return popup_->isVisible() ? model_->rowCount() : 0;
}

void ctlFind::Search() {
    if (stale_) finder_.Read(session_.Document(), Marks());
    stale_ = false;
    const unsigned filters = Filters();
    const bool typed = !text().trimmed().isEmpty();
    const Finder::Result result = finder_.Find(text(), kMostHits, filters);
    model_->clear();
    for (const Finder::Hit& hit : result.hits) {
        auto* item = new QStandardItem(hit.label);
        item->setData(hit.key, HitDelegate::kKeyRole);
        item->setData(hit.value, HitDelegate::kValueRole);
        item->setData(hit.where, HitDelegate::kWhereRole);
        item->setData(QStringLiteral("%1, %2, %3, %4").arg(hit.label, hit.value, hit.key, hit.where),
                      Qt::AccessibleTextRole);
        model_->appendRow(item);
    }
    const ResourceTexts& texts = session_.Context().texts;
    note_->setText(!typed && filters == 0          ? Say(texts, say::kFilterHint)
                   : result.hits.empty() && !typed ? Say(texts, say::kFilterNothing)
                   : result.hits.empty()           ? Say(texts, say::kNothingFound, text())
                   : result.more > 0               ? Say(texts, say::kFindMore, QString::number(result.more))
                                                   : QString());
    list_->setCurrentIndex(model_->index(0, 0));
    ShowList();
}

void ctlFind::ShowList() {
    const int rows = std::min(model_->rowCount(), kMostRows);
    list_->setVisible(rows > 0);
    list_->setFixedHeight(rows == 0 ? 0 : rows * list_->sizeHintForRow(0));
    note_->setVisible(!note_->text().isEmpty());
    QWidget* window = popup_->parentWidget();
    const QPoint below = mapTo(window, QPoint(width(), height()));
    const int width = std::min(kPopupWidth, window->width());
    popup_->setFixedWidth(width);
    note_->setFixedHeight(note_->text().isEmpty() ? 0 : note_->heightForWidth(width - 2));
    popup_->adjustSize();
    popup_->move(std::max(0, below.x() - width), below.y() + metrics::kHalf);
    popup_->raise();
    popup_->show();
}

void ctlFind::Choose(const QModelIndex& index) {
    if (!index.isValid()) return;
    const QString key = index.data(HitDelegate::kKeyRole).toString();
    popup_->hide();
    emit Chosen(key);
}

void ctlFind::Move(int rows) {
    if (!popup_->isVisible() || model_->rowCount() == 0) return;
    const int row = std::clamp(list_->currentIndex().row() + rows, 0, model_->rowCount() - 1);
    list_->setCurrentIndex(model_->index(row, 0));
}

void ctlFind::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Down:
            return Move(1);
        case Qt::Key_Up:
            return Move(-1);
        case Qt::Key_PageDown:
            return Move(kMostRows);
        case Qt::Key_PageUp:
            return Move(-kMostRows);
        case Qt::Key_Return:
        case Qt::Key_Enter:
            return popup_->isVisible() ? Choose(list_->currentIndex()) : Search();
        case Qt::Key_Escape:
            return Leave();
        default:
            QLineEdit::keyPressEvent(event);
    }
}

void ctlFind::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    Search();
}

// From the box to the filters, which lie in a sheet of their own.
bool ctlFind::focusNextPrevChild(bool next) {
    if (!next || !popup_->isVisible()) return QLineEdit::focusNextPrevChild(next);
    filters_.front()->setFocus(Qt::TabFocusReason);
    return true;
}

void ctlFind::Leave() {
    popup_->hide();
    emit Left();
}

// The keys of a filter that has the focus.
bool ctlFind::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
        Leave();
        return true;
    }
    if (event->type() == QEvent::FocusOut) {
        QWidget* now = QApplication::focusWidget();
        if (now != this && (now == nullptr || !popup_->isAncestorOf(now))) popup_->hide();
    }
    return QLineEdit::eventFilter(watched, event);
}

void ctlFind::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    QWidget* now = QApplication::focusWidget();
    if (now == nullptr || !popup_->isAncestorOf(now)) popup_->hide();
}

}  // namespace calyx::ui
