#pragma once

#include <QAction>
#include <QDialog>

#include "model/language/resource_texts.h"

namespace calyx::ui {

// The keys of the program and what they do.
class frmKeyboard : public QDialog {
    Q_OBJECT

  public:
    frmKeyboard(const ResourceTexts& texts, const QList<QAction*>& commands, QWidget* parent);
};

}  // namespace calyx::ui
