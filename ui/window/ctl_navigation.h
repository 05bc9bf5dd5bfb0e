#pragma once

#include <QTreeWidget>
#include <map>

#include "app/settings.h"
#include "model/language/resource_texts.h"
#include "ui/window/places.h"

namespace calyx::ui {

// The navigation bar: groups that fold, places with the number of their problems.
class ctlNavigation : public QTreeWidget {
    Q_OBJECT

  public:
    // The fold state of the groups is kept in the settings `BarGroup`: 0 open, 1 folded.
    ctlNavigation(const ResourceTexts& texts, Settings& settings);

    const Place* Current() const;
    void Show(const Place& place);
    void Step(int places);  // forwards, or back when negative; stops at the ends
    void SetProblems(const std::map<const Place*, int>& counts);

    QSize sizeHint() const override;

  signals:
    void PlaceChosen(const calyx::ui::Place& place);

  private:
    QTreeWidgetItem* ItemOf(const Place& place) const;
    void KeepFold(QTreeWidgetItem* group);

    const ResourceTexts& texts_;
    Settings& settings_;
};

}  // namespace calyx::ui
