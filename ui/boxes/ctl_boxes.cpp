#include "ui/boxes/ctl_boxes.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "ui/boxes/boxes_texts.h"
#include "ui/items/ctl_items_page.h"
#include "ui/text.h"
#include "ui/theme/metrics.h"

namespace calyx::ui {

using namespace boxes_text;

namespace {

// A port whose input type nobody has set yet: the first behind port 1, which mostly leads to a computer.
int FreePort(const CHardware& hardware) {
    for (const int port : hardware.CommPorts()) {
        const Item& item = hardware.CommPort(port).Parameters();
        const auto row = item.Find("EDP.INPUT#" + std::to_string(port));
        if (port > 1 && row && item.Text(*row) == item.InitialText(*row)) return port;
    }
    return 1;
}

}  // namespace

ctlBoxes::ctlBoxes(DocumentSession& session, ctlItemsPage* items) : session_(session), go_(new QPushButton) {
    addWidget(MakeEmptyState());
    addWidget(items);
    const auto follow = [this] {
        if (isVisible()) Refresh();
    };
    connect(&session_, &DocumentSession::Changed, this, follow);
    connect(&session_, &DocumentSession::Replaced, this, follow);
    Refresh();
}

QWidget* ctlBoxes::MakeEmptyState() {
    auto* what = new QLabel(Say(session_.Context().texts, kNoBoxes));
    what->setWordWrap(true);
    go_->setObjectName(QStringLiteral("cmdPort"));
    connect(go_, &QPushButton::clicked, this,
            [this] { emit ParameterWanted(QStringLiteral("EDP.INPUT#%1").arg(port_)); });
    auto* empty = new QWidget;
    auto* column = new QVBoxLayout(empty);
    column->setContentsMargins(metrics::kPageEdge, metrics::kPageEdge, metrics::kPageEdge,
                               metrics::kPageEdge);
    column->setSpacing(metrics::kGroups);
    column->addWidget(what);
    column->addWidget(go_, 0, Qt::AlignLeft);
    column->addStretch(1);
    return empty;
}

void ctlBoxes::showEvent(QShowEvent* event) {
    QStackedWidget::showEvent(event);
    Refresh();
}

void ctlBoxes::Refresh() {
    const CIndicator& document = std::as_const(session_).Document();
    port_ = FreePort(document.Hardware());
    go_->setText(Say(session_.Context().texts, kGoToPort, QString::number(port_)));
    setCurrentIndex(document.JunctionBoxes().Count() == 0 ? 0 : 1);
    setFocusProxy(document.JunctionBoxes().Count() == 0 ? go_ : widget(1));
}

}  // namespace calyx::ui
