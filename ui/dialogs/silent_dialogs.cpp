#include "ui/dialogs/silent_dialogs.h"

#include <iostream>

#include "ui/text.h"

namespace calyx::ui {

int SilentDialogs::Ask(QWidget*, const Question& question) {
    std::cerr << "calyx: " << Utf8(question.title) << ": " << Utf8(question.text) << '\n';
    if (!question.details.isEmpty()) std::cerr << "calyx: " << Utf8(question.details) << '\n';
    return static_cast<int>(question.buttons.size()) - 1;
}

}  // namespace calyx::ui
