#pragma once

#include <QLayout>
#include <vector>

#include "ui/theme/metrics.h"

namespace calyx::ui {

// Widgets one after the other, going on in the next line where the width ends. The last one of a line takes
// what is left of it, if it grows in width.
class WrapLayout : public QLayout {
  public:
    // `gap`: between widgets and between lines, in pixels.
    explicit WrapLayout(QWidget* parent, int gap = metrics::kHalf);
    ~WrapLayout() override;

    void addItem(QLayoutItem* item) override { items_.push_back(item); }
    int count() const override { return static_cast<int>(items_.size()); }
    QLayoutItem* itemAt(int index) const override;
    QLayoutItem* takeAt(int index) override;
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override { return Arrange({0, 0, width, 0}, false); }
    QSize sizeHint() const override;
    QSize minimumSize() const override;
    void setGeometry(const QRect& rect) override;

  private:
    static QSize Size(const QLayoutItem& item, int room);
    int Arrange(const QRect& rect, bool apply) const;  // the height

    int gap_;
    std::vector<QLayoutItem*> items_;
};

}  // namespace calyx::ui
