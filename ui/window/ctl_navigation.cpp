#include "ui/window/ctl_navigation.h"

#include <algorithm>

#include "ui/text.h"
#include "ui/texts.h"
#include "ui/theme/metrics.h"
#include "ui/theme/theme.h"
#include "ui/window/place_delegate.h"

namespace calyx::ui {

namespace {

constexpr int kWidth = 224, kNarrowest = 184;
constexpr int kIndent = 12;

}  // namespace

ctlNavigation::ctlNavigation(const ResourceTexts& texts, Settings& settings)
    : texts_(texts), settings_(settings) {
    setObjectName(QStringLiteral("ctlNavigation"));
    setAccessibleName(Say(texts, say::kNavigationName));
    setHeaderHidden(true);
    setItemDelegate(new PlaceDelegate(this));
    setFrameShape(QFrame::NoFrame);
    setIndentation(kIndent);
    setMinimumWidth(kNarrowest);
    setUniformRowHeights(true);
    setExpandsOnDoubleClick(false);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    viewport()->setBackgroundRole(role::kWindow);

    QFont heading = TextFont(TextSize::Small);
    heading.setWeight(QFont::DemiBold);
    std::size_t number = 0;
    for (const PlaceGroup& group : PlaceGroups()) {
        auto* top = new QTreeWidgetItem(this, {Say(texts, group.title)});
        top->setFlags(Qt::ItemIsEnabled);
        top->setFont(0, heading);
        for (const Place& place : group.places) {
            auto* item = new QTreeWidgetItem(top, {Say(texts, place.title)});
            item->setIcon(0, Icon(place.icon));
            item->setData(0, PlaceDelegate::kPlaceRole, QVariant::fromValue<const void*>(&place));
        }
        top->setExpanded(settings.BarGroup[number++] == 0);
    }
    connect(this, &QTreeWidget::itemExpanded, this, &ctlNavigation::KeepFold);
    connect(this, &QTreeWidget::itemCollapsed, this, &ctlNavigation::KeepFold);
    connect(this, &QTreeWidget::itemClicked, this, [](QTreeWidgetItem* item) {
        if (item->parent() == nullptr) item->setExpanded(!item->isExpanded());
    });
    connect(this, &QTreeWidget::currentItemChanged, this, [this] {
        if (const Place* place = Current()) emit PlaceChosen(*place);
    });
}

QSize ctlNavigation::sizeHint() const {
    return {kWidth, QTreeWidget::sizeHint().height()};
}

const Place* ctlNavigation::Current() const {
    const QTreeWidgetItem* item = currentItem();
    return item == nullptr
               ? nullptr
               : static_cast<const Place*>(item->data(0, PlaceDelegate::kPlaceRole).value<const void*>());
}

QTreeWidgetItem* ctlNavigation::ItemOf(const Place& place) const {
    for (int group = 0; group < topLevelItemCount(); ++group) {
        QTreeWidgetItem* top = topLevelItem(group);
        for (int i = 0; i < top->childCount(); ++i) {
            if (top->child(i)->data(0, PlaceDelegate::kPlaceRole).value<const void*>() == &place)
                return top->child(i);
        }
    }
    return nullptr;
}

void ctlNavigation::Show(const Place& place) {
    setCurrentItem(ItemOf(place));  // a folded group opens
}

void ctlNavigation::Step(int places) {
    const auto& all = AllPlaces();
    const auto here = std::find(all.begin(), all.end(), Current()) - all.begin();
    const auto there = std::clamp<std::ptrdiff_t>(here + places, 0, std::ssize(all) - 1);
    Show(*all[static_cast<std::size_t>(there)]);
}

void ctlNavigation::SetProblems(const std::map<const Place*, int>& counts) {
    for (const Place* place : AllPlaces()) {
        QTreeWidgetItem* item = ItemOf(*place);
        const auto found = counts.find(place);
        const int count = found == counts.end() ? 0 : found->second;
        const QString words =
            count == 0 ? QString() : Say(texts_, say::kProblemsHere, QString::number(count));
        item->setData(0, PlaceDelegate::kCountRole, count);
        item->setToolTip(0, words);
        item->setData(0, Qt::AccessibleDescriptionRole, words);
    }
}

void ctlNavigation::KeepFold(QTreeWidgetItem* group) {
    const int place = indexOfTopLevelItem(group);
    if (place >= 0) settings_.BarGroup[static_cast<std::size_t>(place)] = group->isExpanded() ? 0 : 1;
}

}  // namespace calyx::ui
