#pragma once

#include <QListWidget>

#include "ui/widgets/screen_state.h"

namespace calyx::ui {

// The widgets of the screen by name, the lowest first: the same choice as on the screen, for the keyboard
// and for what cannot be met with the pointer.
class ctlWidgetList : public QListWidget {
    Q_OBJECT

  public:
    explicit ctlWidgetList(ScreenState& state);

  signals:
    void PropertiesWanted();

  private:
    void Refresh();
    void ShowChosen();
    void TakeChosen();

    ScreenState& state_;
};

}  // namespace calyx::ui
