#include "ui/widgets/ctl_widget_list.h"

#include <QSignalBlocker>

#include "ui/form/bytes.h"
#include "ui/text.h"
#include "ui/theme/icons.h"
#include "ui/widgets/tool_icons.h"
#include "ui/widgets/widget_texts.h"
#include "ui/widgets/widget_words.h"

namespace calyx::ui {

using namespace widget_text;

namespace {
constexpr int kNumberRole = Qt::UserRole;
}

ctlWidgetList::ctlWidgetList(ScreenState& state) : state_(state) {
    setObjectName(QStringLiteral("widgetList"));
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setTextElideMode(Qt::ElideRight);
    connect(this, &QListWidget::itemSelectionChanged, this, &ctlWidgetList::TakeChosen);
    connect(this, &QListWidget::itemActivated, this, &ctlWidgetList::PropertiesWanted);
    connect(&state_, &ScreenState::ScreenShown, this, &ctlWidgetList::Refresh);
    connect(&state_, &ScreenState::WidgetsChanged, this, &ctlWidgetList::Refresh);
    connect(&state_, &ScreenState::ChosenChanged, this, &ctlWidgetList::ShowChosen);
    Refresh();
}

void ctlWidgetList::Refresh() {
    const QSignalBlocker quiet(this);
    const ResourceTexts& texts = state_.Texts();
    const CWidgets& widgets = state_.Widgets();
    setAccessibleName(Say(texts, kListName, QString::number(state_.Screen())));
    const std::vector<int> numbers = state_.OnScreen();
    while (count() > static_cast<int>(numbers.size())) delete takeItem(count() - 1);
    while (count() < static_cast<int>(numbers.size())) addItem(QString());
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        const int number = numbers[i];
        const CWidget& widget = widgets.widget(number);
        QListWidgetItem* row = item(static_cast<int>(i));
        const bool beyond = number > static_cast<int>(CWidgets::kOldLimit);
        QString words = WidgetWords(texts, widgets, number);
        const QString caption = ToShown(widget.Values().caption);
        row->setText(caption.isEmpty() ? words : words + QStringLiteral("  ") + caption);
        row->setIcon(beyond ? Icon(IconName::Problem) : IconOf(widget.WidgetType()));
        row->setData(kNumberRole, number);
        words = PlaceWords(texts, widgets, number);
        if (beyond) words = Say(texts, kPastLimit, words);
        row->setToolTip(words);
        row->setData(Qt::AccessibleTextRole, words);
    }
    ShowChosen();
}

void ctlWidgetList::ShowChosen() {
    const QSignalBlocker quiet(this);
    QListWidgetItem* lead = nullptr;
    for (int row = 0; row < count(); ++row) {
        const int number = item(row)->data(kNumberRole).toInt();
        if (number == state_.Lead()) lead = item(row);
    }
    if (lead != nullptr) {
        setCurrentItem(lead, QItemSelectionModel::NoUpdate);
        scrollToItem(lead);
    }
    for (int row = 0; row < count(); ++row)
        item(row)->setSelected(state_.IsChosen(item(row)->data(kNumberRole).toInt()));
    viewport()->update();
}

void ctlWidgetList::TakeChosen() {
    std::vector<int> numbers;
    for (const QListWidgetItem* row : selectedItems()) numbers.push_back(row->data(kNumberRole).toInt());
    state_.Choose(std::move(numbers),
                  currentItem() == nullptr ? 0 : currentItem()->data(kNumberRole).toInt());
}

}  // namespace calyx::ui
