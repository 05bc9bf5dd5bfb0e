#pragma once

#include <QWidget>

class QVBoxLayout;

namespace calyx::ui {

class FormPage;

// A form with a bar above or below it. The bar stays in sight; only where it would leave the form too little
// room (a small screen, large letters, panes open) it scrolls along with the fields.
class PageWithBar : public QWidget {
    Q_OBJECT

  public:
    enum class Edge { Top, Bottom };
    // Both become its children.
    PageWithBar(FormPage* form, QWidget* bar, Edge edge);

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    void Place(bool scrolls);

    QWidget* bar_;
    Edge edge_;
    QVBoxLayout *page_, *scrolled_;
    bool scrolls_ = false;
};

}  // namespace calyx::ui
