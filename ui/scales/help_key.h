#pragma once

#include <QKeyEvent>

#include "ui/form/help_popup.h"

namespace calyx::ui {

// F1 on a control that is not a field of a form: opens its help. For the event filter of its owner; true:
// the event is used up.
inline bool TakeHelpKey(QEvent* event, const QString& caption, const QString& help, QWidget* control) {
    const bool press = event->type() == QEvent::KeyPress;
    if (!press && event->type() != QEvent::ShortcutOverride) return false;
    if (static_cast<QKeyEvent*>(event)->key() != Qt::Key_F1) return false;
    event->accept();  // before the menu's F1
    if (press) (new form::HelpPopup(caption, help, control))->Open();
    return true;
}

}  // namespace calyx::ui
