#pragma once

#include "ui/dialogs/dialogs.h"

namespace calyx::ui {

// The boxes as the user sees them.
class QtDialogs final : public Dialogs {
  public:
    int Ask(QWidget* parent, const Question& question) override;
    QString AskOpenFile(QWidget* parent, const FileQuestion& question) override;
    QString AskSaveFile(QWidget* parent, const FileQuestion& question) override;
};

}  // namespace calyx::ui
