#pragma once

#include <QWidget>

#include "ui/widgets/screen_state.h"

namespace calyx::ui {

// How many widgets of those that every firmware takes are used, and what is beyond them.
class ctlGauge : public QWidget {
    Q_OBJECT

  public:
    explicit ctlGauge(ScreenState& state);

    QString Words() const { return words_; }
    int Beyond() const { return beyond_; }
    QSize sizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    void Refresh();

    ScreenState& state_;
    QString words_;
    int used_ = 0, beyond_ = 0;
};

}  // namespace calyx::ui
