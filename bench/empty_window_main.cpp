// The least that a desktop program can be: the floor for the start of calyx.

#include <QApplication>
#include <QTimer>
#include <QWidget>

namespace {

class Window final : public QWidget {
  protected:
    void paintEvent(QPaintEvent*) override { QTimer::singleShot(0, qApp, &QCoreApplication::quit); }
};

}  // namespace

int main(int count, char** arguments) {
    const QApplication application(count, arguments);
    Window window;
    window.show();
    return QApplication::exec();
}
