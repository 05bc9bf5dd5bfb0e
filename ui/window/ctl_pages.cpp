#include "ui/window/ctl_pages.h"

#include <QAbstractScrollArea>
#include <QLabel>
#include <QScrollBar>
#include <QStackedWidget>
#include <QVBoxLayout>

#include "ui/text.h"
#include "ui/theme/metrics.h"
#include "ui/theme/theme.h"

namespace calyx::ui {

ctlPages::ctlPages(DocumentSession& session, PageTools tools)
    : session_(session),
      tools_(std::move(tools)),
      heading_(new QLabel),
      divider_(new QWidget),
      note_(new ctlNote(session)),
      stack_(new QStackedWidget) {
    setObjectName(QStringLiteral("ctlPages"));
    heading_->setObjectName(QStringLiteral("pageHeading"));
    heading_->setFont(TextFont(TextSize::Heading));
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    auto* head = new QVBoxLayout;
    head->setContentsMargins(metrics::kPageEdge, metrics::kGroups, metrics::kPageEdge, metrics::kRelated);
    head->addWidget(heading_);
    divider_->setFixedHeight(1);
    divider_->setAutoFillBackground(true);
    column->addLayout(head);
    column->addWidget(note_);
    column->addWidget(divider_);
    column->addWidget(stack_, 1);
    connect(note_, &ctlNote::UndoWanted, this, &ctlPages::UndoWanted);
}

void ctlPages::AddNote(QWidget* note) {
    static_cast<QVBoxLayout*>(layout())->insertWidget(0, note);
}

void ctlPages::Show(const Place& place) {
    place_ = &place;
    heading_->setText(Say(session_.Context().texts, place.title));
    stack_->setCurrentWidget(PageOf(place).widget);
    ShowDivider();
}

void ctlPages::ShowDivider() {
    const auto* area = qobject_cast<QAbstractScrollArea*>(stack_->currentWidget());
    const bool scrolled = area != nullptr && area->verticalScrollBar()->value() > 0;
    divider_->setBackgroundRole(scrolled ? role::kDivider : role::kWindow);
}

bool ctlPages::FocusKey(const QString& key) {
    return place_ != nullptr && PageOf(*place_).focusKey(key);
}

std::optional<ItemRef> ctlPages::ShownItem() {
    if (place_ == nullptr) return std::nullopt;
    const Page& page = PageOf(*place_);
    return page.shownItem ? page.shownItem() : std::nullopt;
}

void ctlPages::FocusPage() {
    QWidget* page = stack_->currentWidget();
    if (page == nullptr) return;
    QWidget* last = page->focusWidget();
    (last != nullptr ? last : page)->setFocus();
}

void ctlPages::SetDiffering(std::set<std::string> keys) {
    if (keys == differing_) return;
    differing_ = std::move(keys);
    for (const auto& [place, page] : pages_) page.setDiffering(differing_);
}

const Page& ctlPages::PageOf(const Place& place) {
    const auto found = pages_.find(&place);
    if (found != pages_.end()) return found->second;
    const PageEvents events{[this](const QString& key) { emit KeyFocused(key); },
                            [this](const QString& key) { emit ShowInLines(key); },
                            [this](const QString& key) { emit ParameterWanted(key); },
                            [this](const auto& item) { emit ItemShown(item); }};
    const Page page = MakePageOf(session_, place, tools_, events);
    stack_->addWidget(page.widget);
    if (auto* area = qobject_cast<QAbstractScrollArea*>(page.widget))
        connect(area->verticalScrollBar(), &QScrollBar::valueChanged, this, &ctlPages::ShowDivider);
    if (!differing_.empty()) page.setDiffering(differing_);
    return pages_.emplace(&place, page).first->second;
}

}  // namespace calyx::ui
