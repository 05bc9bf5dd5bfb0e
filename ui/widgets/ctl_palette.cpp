#include "ui/widgets/ctl_palette.h"

#include <QApplication>
#include <QDrag>
#include <QKeyEvent>
#include <QMimeData>
#include <QToolButton>
#include <algorithm>

#include "ui/scales/wrap_layout.h"
#include "ui/text.h"
#include "ui/theme/metrics.h"
#include "ui/widgets/ctl_screen.h"
#include "ui/widgets/tool_icons.h"
#include "ui/widgets/widget_texts.h"
#include "ui/widgets/widget_words.h"

namespace calyx::ui {

using namespace widget_text;

ctlPalette::ctlPalette(const ResourceTexts& texts) {
    setObjectName(QStringLiteral("ctlPalette"));
    setAccessibleName(Say(texts, kPaletteName));
    auto* row = new WrapLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(metrics::kHalf);
    for (std::size_t i = 0; i < kWidgetKinds.size(); ++i) {
        const WidgetKind kind = kWidgetKinds[i].kind;
        auto* button = buttons_[i] = new QToolButton;
        const int code = static_cast<int>(kind);
        button->setObjectName(QStringLiteral("cmdKind%1").arg(code));
        button->setText(KindWords(texts, kind));
        button->setIcon(IconOf(kind));
        button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        button->setCheckable(true);
        button->setMinimumHeight(metrics::kControlHeight);
        button->setFocusPolicy(Qt::StrongFocus);
        button->setToolTip(Say(texts, kPaletteTip, Say(texts, kKindHelp + code)));
        button->setAccessibleDescription(Say(texts, kKindHelp + code));
        button->installEventFilter(this);
        connect(button, &QToolButton::clicked, this, [this, kind](bool taken) {
            if (taken) {
                emit Taken(kind);
            } else {
                emit GivenBack();
            }
        });
        row->addWidget(button);
    }
}

void ctlPalette::ShowTaken(std::optional<WidgetKind> kind) {
    for (std::size_t i = 0; i < buttons_.size(); ++i) buttons_[i]->setChecked(kind == kWidgetKinds[i].kind);
}

void ctlPalette::Drag(std::size_t place) {
    ShowTaken(std::nullopt);
    buttons_[place]->setDown(false);
    auto* kind = new QMimeData;
    kind->setData(kKindFormat, QByteArray::number(static_cast<int>(kWidgetKinds[place].kind)));
    auto* drag = new QDrag(this);
    drag->setMimeData(kind);
    drag->setPixmap(buttons_[place]->icon().pixmap(metrics::kIconMedium));
    drag->exec(Qt::CopyAction);
}

bool ctlPalette::eventFilter(QObject* watched, QEvent* event) {
    const auto button = std::find(buttons_.begin(), buttons_.end(), watched);
    if (button == buttons_.end()) return false;
    const auto place = static_cast<std::size_t>(button - buttons_.begin());
    switch (event->type()) {
        case QEvent::KeyPress: {
            const int key = static_cast<QKeyEvent*>(event)->key();
            if (key != Qt::Key_Return && key != Qt::Key_Enter && key != Qt::Key_Space) return false;
            emit PlaceWanted(kWidgetKinds[place].kind);
            return true;
        }
        case QEvent::MouseButtonPress:
            pressed_ = static_cast<QMouseEvent*>(event)->pos();
            return false;
        case QEvent::MouseMove: {
            const auto* mouse = static_cast<QMouseEvent*>(event);
            if (!mouse->buttons().testFlag(Qt::LeftButton)) return false;
            if ((mouse->pos() - pressed_).manhattanLength() < QApplication::startDragDistance()) return false;
            Drag(place);
            return true;
        }
        default:
            return false;
    }
}

}  // namespace calyx::ui
