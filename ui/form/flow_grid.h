#pragma once

#include <QLayout>
#include <vector>

namespace calyx::ui::form {

// Groups in one to three columns by width, each group whole, down the columns in their order, the
// columns as even as the order allows. How groups are shared out depends on the weights of those that are
// seen and on the width alone, so that a group which grows or shrinks never moves another one to the next
// column.
class FlowGrid : public QLayout {
  public:
    // Widths of a column, in pixels. `widest`: beyond it space stays free on the right.
    FlowGrid(QWidget* parent, int widest);
    ~FlowGrid() override;

    // `weight`: about the height of the group at its fullest, in rows.
    void AddGroup(QWidget* group, double weight);

    void addItem(QLayoutItem* item) override;
    int count() const override { return static_cast<int>(places_.size()); }
    QLayoutItem* itemAt(int index) const override;
    QLayoutItem* takeAt(int index) override;
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSize() const override;
    void setGeometry(const QRect& rect) override;
    void invalidate() override;

  private:
    struct Place {
        QLayoutItem* item;
        double weight;
    };
    int ColumnCount(int width) const;
    std::vector<std::size_t> Seen() const;  // places of the groups that are not hidden
    std::vector<std::size_t> Shares(const std::vector<std::size_t>& seen, std::size_t columns) const;
    int Arrange(const QRect& rect, bool apply) const;
    int NarrowestColumn() const;

    int widest_;
    std::vector<Place> places_;
};

// Where each column but the first begins, so that the heaviest column is as light as can be.
std::vector<std::size_t> ShareOut(const std::vector<double>& weights, std::size_t columns);

}  // namespace calyx::ui::form
