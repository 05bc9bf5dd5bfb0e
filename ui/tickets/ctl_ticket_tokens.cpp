#include "ui/tickets/ctl_ticket_tokens.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QSortFilterProxyModel>
#include <QTreeView>
#include <QVBoxLayout>

#include "ui/text.h"
#include "ui/theme/metrics.h"
#include "ui/theme/theme.h"
#include "ui/tickets/ticket_texts.h"
#include "ui/tickets/token_model.h"

namespace calyx::ui {

ctlTicketTokens::ctlTicketTokens(const TicketTokens& tokens, const ResourceTexts& texts)
    : texts_(texts),
      search_(new QLineEdit),
      fitting_(new QSortFilterProxyModel(this)),
      list_(new QTreeView),
      none_(new QLabel) {
    fitting_->setSourceModel(MakeTokenModel(tokens, texts, this));
    fitting_->setFilterKeyColumn(-1);
    fitting_->setFilterCaseSensitivity(Qt::CaseInsensitive);
    search_->setObjectName(QStringLiteral("tokenSearch"));
    search_->setClearButtonEnabled(true);
    search_->setPlaceholderText(Say(texts_, say::kTokensHint));
    search_->installEventFilter(this);
    list_->setObjectName(QStringLiteral("tokenList"));
    list_->setAccessibleName(PlainCaption(Say(texts_, say::kTokens)));
    list_->setModel(fitting_);
    list_->setRootIsDecorated(false);
    list_->setUniformRowHeights(true);
    list_->setAllColumnsShowFocus(true);
    list_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    list_->header()->setStretchLastSection(false);
    list_->header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    list_->header()->setSectionResizeMode(1, QHeaderView::Stretch);
    list_->header()->setSectionResizeMode(2, QHeaderView::Interactive);
    list_->header()->resizeSection(2, list_->fontMetrics().averageCharWidth() * 16);
    none_->setObjectName(QStringLiteral("noTokens"));
    none_->setForegroundRole(role::kQuietText);
    none_->setTextFormat(Qt::PlainText);
    none_->setWordWrap(true);
    none_->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    auto* label = new QLabel(Say(texts_, say::kTokens));
    label->setBuddy(search_);
    auto* first = new QHBoxLayout;
    first->setSpacing(metrics::kGroups);
    first->addWidget(label);
    first->addWidget(search_, 1);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(metrics::kHalf);
    column->addLayout(first);
    column->addWidget(list_, 1);
    column->addWidget(none_, 1);
    connect(search_, &QLineEdit::textChanged, this, &ctlTicketTokens::Search);
    connect(search_, &QLineEdit::returnPressed, this, &ctlTicketTokens::ChooseCurrent);
    // Enter and a double click, also where the platform activates by a single one.
    connect(list_, &QTreeView::doubleClicked, this, &ctlTicketTokens::ChooseCurrent);
    list_->installEventFilter(this);
    Search({});
}

void ctlTicketTokens::Search(const QString& words) {
    fitting_->setFilterFixedString(words.trimmed());
    list_->setCurrentIndex(fitting_->index(0, 0));
    ShowWhetherEmpty();
}

void ctlTicketTokens::ShowWhetherEmpty() {
    const bool known = fitting_->sourceModel()->rowCount() > 0;
    none_->setText(known ? Say(texts_, say::kNoTokenFits, search_->text()) : Say(texts_, say::kNoTokens));
    list_->setVisible(fitting_->rowCount() > 0);
    none_->setVisible(fitting_->rowCount() == 0);
}

void ctlTicketTokens::ChooseCurrent() {
    const QModelIndex current = list_->currentIndex();
    if (current.isValid()) emit Chosen(current.data(kTokenNameRole).toString());
}

// Where there is little room, what a token prints matters more than its sample, which the tip has too.
void ctlTicketTokens::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    constexpr int kCharactersForSamples = 48;
    list_->setColumnHidden(2, width() < kCharactersForSamples * list_->fontMetrics().averageCharWidth());
}

bool ctlTicketTokens::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress) return QWidget::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    const bool enter = key == Qt::Key_Return || key == Qt::Key_Enter;
    if (watched == list_ && enter) {
        ChooseCurrent();
        return true;
    }
    // From the search box down into what was found.
    if (watched == search_ && (key == Qt::Key_Down || key == Qt::Key_Up)) {
        const int step = key == Qt::Key_Down ? 1 : -1;
        const QModelIndex next = fitting_->index(list_->currentIndex().row() + step, 0);
        if (next.isValid()) list_->setCurrentIndex(next);
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

}  // namespace calyx::ui
