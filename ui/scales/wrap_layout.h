#pragma once

#include <QLayout>
#include <vector>

namespace calyx::ui {

// Widgets one after the other, going on in the next line where the width ends.
class WrapLayout : public QLayout {
  public:
    explicit WrapLayout(QWidget* parent);
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
    int Arrange(const QRect& rect, bool apply) const;  // the height

    std::vector<QLayoutItem*> items_;
};

}  // namespace calyx::ui
