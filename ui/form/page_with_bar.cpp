#include "ui/form/page_with_bar.h"

#include <QVBoxLayout>

#include "ui/form/form_page.h"

namespace calyx::ui {

namespace {

constexpr int kLeastShare = 3;  // of the page's height, in heights of the bar

QVBoxLayout* MakeColumn(QWidget* of) {
    auto* column = new QVBoxLayout(of);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    return column;
}

}  // namespace

PageWithBar::PageWithBar(FormPage* form, QWidget* bar, Edge edge)
    : bar_(bar), edge_(edge), page_(MakeColumn(this)) {
    auto* content = new QWidget;
    scrolled_ = MakeColumn(content);
    scrolled_->addWidget(form->takeWidget());
    scrolled_->addStretch(1);
    form->setWidget(content);
    content->setAutoFillBackground(false);
    // In the order in which Tab goes.
    if (edge == Edge::Top) page_->addWidget(bar_);
    page_->addWidget(form, 1);
    if (edge == Edge::Bottom) page_->addWidget(bar_);
    setFocusProxy(form);
}

void PageWithBar::Place(bool scrolls) {
    scrolls_ = scrolls;
    QWidget* focus = bar_->isAncestorOf(focusWidget()) ? focusWidget() : nullptr;
    QVBoxLayout* column = scrolls ? scrolled_ : page_;
    column->insertWidget(edge_ == Edge::Top ? 0 : column->count(), bar_);
    bar_->show();
    if (focus != nullptr) focus->setFocus(Qt::OtherFocusReason);
}

void PageWithBar::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    const bool scrolls = height() < kLeastShare * bar_->sizeHint().height();
    if (scrolls != scrolls_) Place(scrolls);
}

}  // namespace calyx::ui
