#pragma once

#include <QLabel>
#include <QPainter>

namespace calyx::ui {

// One line of plain text that is cut with dots where it does not fit; the whole stands in its tool tip.
class ElidedLabel : public QLabel {
  public:
    explicit ElidedLabel(Qt::TextElideMode mode) : mode_(mode) { setTextFormat(Qt::PlainText); }

    QSize minimumSizeHint() const override {
        constexpr int kFewest = 8;  // characters that stay
        return {fontMetrics().averageCharWidth() * kFewest, QLabel::minimumSizeHint().height()};
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setPen(palette().color(foregroundRole()));
        painter.drawText(rect(), static_cast<int>(alignment()),
                         fontMetrics().elidedText(text(), mode_, width()));
    }

  private:
    Qt::TextElideMode mode_;
};

}  // namespace calyx::ui
