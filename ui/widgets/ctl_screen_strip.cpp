#include "ui/widgets/ctl_screen_strip.h"

#include <QPainter>
#include <QSignalBlocker>
#include <QStyledItemDelegate>
#include <array>

#include "ui/text.h"
#include "ui/theme/metrics.h"
#include "ui/theme/theme.h"
#include "ui/widgets/widget_texts.h"

namespace calyx::ui {

using namespace widget_text;

namespace {

constexpr int kCellHeight = 40;
constexpr int kCountRole = Qt::UserRole;

// The number of the screen over the count of its widgets; an empty screen has none.
class CellDelegate final : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        const int count = index.data(kCountRole).toInt();
        const bool selected = option.state.testFlag(QStyle::State_Selected);
        const QPalette& colours = option.palette;
        const QRect cell = option.rect.adjusted(1, 1, -1, -1);
        painter->save();
        if (selected) {
            painter->fillRect(cell, colours.color(role::kAccent));
        } else if (option.state.testFlag(QStyle::State_MouseOver)) {
            painter->fillRect(cell, colours.color(role::kRaised));
        }
        if (selected && option.state.testFlag(QStyle::State_HasFocus)) {
            painter->setPen(colours.color(role::kOnAccent));
            painter->drawRect(cell.adjusted(1, 1, -2, -2));
        }
        const auto colour = [&](QPalette::ColorRole own) {
            return colours.color(selected ? role::kOnAccent : own);
        };
        painter->setFont(count > 0 ? StrongFont() : TextFont(TextSize::Body));
        painter->setPen(colour(count > 0 ? role::kText : role::kQuietText));
        const QRect upper(cell.x(), cell.y() + 2, cell.width(), cell.height() / 2);
        painter->drawText(upper, Qt::AlignCenter, index.data().toString());
        if (count > 0) {
            painter->setFont(TextFont(TextSize::Small));
            painter->setPen(colour(role::kQuietText));
            painter->drawText(upper.translated(0, upper.height() - 3), Qt::AlignCenter,
                              QString::number(count));
        }
        painter->restore();
    }
};

}  // namespace

ctlScreenStrip::ctlScreenStrip(ScreenState& state) : state_(state) {
    setObjectName(QStringLiteral("screenStrip"));
    setAccessibleName(Say(state_.Texts(), kScreensName));
    setFlow(QListView::LeftToRight);
    setUniformItemSizes(true);
    setFrameShape(QFrame::NoFrame);
    viewport()->setAutoFillBackground(false);
    setMouseTracking(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setItemDelegate(new CellDelegate(this));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setFixedHeight(kCellHeight + 2);
    for (int screen = 1; screen <= kScreens; ++screen) {
        auto* item = new QListWidgetItem(QString::number(screen), this);
        item->setSizeHint({kCell, kCellHeight});
    }
    connect(this, &QListWidget::currentRowChanged, this, [this](int row) { state_.ShowScreen(row + 1); });
    connect(&state_, &ScreenState::ScreenShown, this, &ctlScreenStrip::Refresh);
    connect(&state_, &ScreenState::WidgetsChanged, this, &ctlScreenStrip::Refresh);
    Refresh();
}

QSize ctlScreenStrip::sizeHint() const {
    return {kScreens * kCell + 2, kCellHeight + 2};
}

void ctlScreenStrip::Refresh() {
    const QSignalBlocker quiet(this);
    std::array<int, kScreens + 1> counts{};
    for (const int number : state_.Widgets().Numbers()) {
        ++counts[static_cast<std::size_t>(state_.Widgets().widget(number).ScreenNumber())];
    }
    const ResourceTexts& texts = state_.Texts();
    for (int screen = 1; screen <= kScreens; ++screen) {
        const int count = counts[static_cast<std::size_t>(screen)];
        const QString number = QString::number(screen);
        const QString words = count == 0   ? Say(texts, kScreenEmpty, number)
                              : count == 1 ? Say(texts, kScreenWordsOne, number)
                                           : Say(texts, kScreenWords, number, QString::number(count));
        QListWidgetItem* cell = item(screen - 1);
        cell->setData(kCountRole, count);
        cell->setToolTip(words);
        cell->setData(Qt::AccessibleTextRole, words);
    }
    setCurrentRow(state_.Screen() - 1);
    viewport()->update();
}

}  // namespace calyx::ui
