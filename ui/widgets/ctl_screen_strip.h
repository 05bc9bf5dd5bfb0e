#pragma once

#include <QListWidget>

#include "ui/widgets/screen_state.h"

namespace calyx::ui {

// The screens 1 to 20 in a row, each with the count of its widgets.
class ctlScreenStrip : public QListWidget {
    Q_OBJECT

  public:
    explicit ctlScreenStrip(ScreenState& state);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return {6 * kCell, sizeHint().height()}; }

  private:
    void Refresh();

    static constexpr int kCell = 28;
    ScreenState& state_;
};

}  // namespace calyx::ui
