#include "ui/link/ui_clock.h"

#include <QCoreApplication>

namespace calyx::ui {

void UiClock::LetOthersRun() {
    QCoreApplication::processEvents();
}

}  // namespace calyx::ui
