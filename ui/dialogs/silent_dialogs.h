#pragma once

#include "ui/dialogs/dialogs.h"

namespace calyx::ui {

// For runs with nobody there to answer: every message goes to the standard error output, and the answer
// is the one that Esc gives.
class SilentDialogs final : public Dialogs {
  public:
    int Ask(QWidget* parent, const Question& question) override;
    QString AskOpenFile(QWidget*, const FileQuestion&) override { return {}; }
    QString AskSaveFile(QWidget*, const FileQuestion&) override { return {}; }
};

}  // namespace calyx::ui
