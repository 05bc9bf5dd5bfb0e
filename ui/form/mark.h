#pragma once

#include <QWidget>

#include "ui/theme/icons.h"

namespace calyx::ui::form {

// The one small mark before a label, with its meaning in words. Takes its room also when it shows nothing.
class Mark : public QWidget {
    Q_OBJECT

  public:
    explicit Mark(QWidget* parent);

    void Show(IconName icon, const QStringList& words);
    void Clear();
    bool IsShown() const { return shown_; }
    IconName Shows() const { return icon_; }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    bool shown_ = false;
    IconName icon_ = IconName::Changed;
};

}  // namespace calyx::ui::form
