#pragma once

#include <QAccessibleWidget>
#include <map>

namespace calyx::ui {

// What a screen reader sees of a drawing whose parts are no widgets: a list of them, by their places. A part
// is made when it is first asked for.
class PartsAccess : public QAccessibleWidget {
  public:
    explicit PartsAccess(QWidget& drawing) : QAccessibleWidget(&drawing, QAccessible::List) {}
    ~PartsAccess() override {
        for (const auto& [place, id] : made_) QAccessible::deleteAccessibleInterface(id);
    }

    QAccessibleInterface* child(int place) const override {
        if (place < 0 || place >= childCount()) return nullptr;
        const auto found = made_.find(place);
        if (found != made_.end()) return QAccessible::accessibleInterface(found->second);
        QAccessibleInterface* made = MakePart(place);
        made_.emplace(place, QAccessible::registerAccessibleInterface(made));
        return made;
    }
    int indexOfChild(const QAccessibleInterface* wanted) const override {
        for (const auto& [place, id] : made_) {
            if (QAccessible::accessibleInterface(id) == wanted) return place;
        }
        return -1;
    }

  private:
    virtual QAccessibleInterface* MakePart(int place) const = 0;

    mutable std::map<int, QAccessible::Id> made_;
};

}  // namespace calyx::ui
