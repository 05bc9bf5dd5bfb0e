#pragma once

#include <QFrame>
#include <QPainter>

#include "ui/theme/tokens.h"

namespace calyx::ui {

// The sheet below the find box, with a thin border of its own.
class FindPopup : public QFrame {
  public:
    using QFrame::QFrame;

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.fillRect(rect(), palette().color(role::kBorder));
        painter.fillRect(rect().adjusted(1, 1, -1, -1), palette().color(role::kField));
    }
};

}  // namespace calyx::ui
