#pragma once

#include <QFrame>

namespace calyx::ui::form {

// What F1 shows of a field, below it. Any key or click puts it away; it deletes itself.
class HelpPopup : public QFrame {
    Q_OBJECT

  public:
    HelpPopup(const QString& caption, const QString& help, QWidget* field);  // `help`: rich text
    void Open();

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    QWidget* field_;
};

}  // namespace calyx::ui::form
