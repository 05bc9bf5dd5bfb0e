#pragma once

#include <QPointer>
#include <QWidget>

namespace calyx::ui::form {

// A frame of the accent's colour around a field that the view was sent to; it stays with the field, fades
// and goes by itself.
class Flash : public QWidget {
    Q_OBJECT

  public:
    // Around two widgets inside `parent`.
    Flash(QWidget* first, QWidget* last, QWidget* parent);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    void Follow();

    QPointer<QWidget> first_, last_;
    double strength_ = 1;
};

}  // namespace calyx::ui::form
