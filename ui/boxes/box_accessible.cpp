#include "ui/boxes/box_accessible.h"

#include <QAccessible>
#include <QPointer>

#include "ui/boxes/ctl_box_picture.h"
#include "ui/parts_access.h"

namespace calyx::ui {

namespace {

// The part at a place of the plan; what stands there may change.
class PartAccess final : public QAccessibleInterface, public QAccessibleActionInterface {
  public:
    PartAccess(ctlBoxPicture& picture, int place) : picture_(&picture), place_(place) {}

    bool isValid() const override { return Part() != nullptr; }
    QObject* object() const override { return nullptr; }
    QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(picture_); }
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QAccessible::Role role() const override { return QAccessible::ListItem; }
    QString text(QAccessible::Text kind) const override {
        return isValid() && kind == QAccessible::Name ? Part()->spoken : QString();
    }
    void setText(QAccessible::Text, const QString&) override {}
    QRect rect() const override {
        if (!isValid()) return {};
        const QRect own = Part()->rect.toRect();
        return {picture_->mapToGlobal(own.topLeft()), own.size()};
    }
    QAccessible::State state() const override {
        QAccessible::State state;
        state.selectable = state.focusable = state.multiSelectable = true;
        if (!isValid()) {
            state.invalid = true;
            return state;
        }
        const BoxMarks& marks = picture_->Marks();
        state.selected = Part()->kind == BoxPlan::Kind::Cell && marks.cells.contains(Part()->number);
        state.focused = picture_->hasFocus() && marks.focus == place_;
        return state;
    }

    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                    : nullptr;
    }
    QStringList actionNames() const override { return {pressAction()}; }
    void doAction(const QString& action) override {
        if (action == pressAction() && isValid()) picture_->FocusPart(place_);
    }
    QStringList keyBindingsForAction(const QString&) const override { return {}; }

  private:
    const BoxPlan::Part* Part() const {
        if (picture_ == nullptr) return nullptr;
        const auto& parts = picture_->Plan().parts;
        const auto place = static_cast<std::size_t>(place_);
        return place < parts.size() ? &parts[place] : nullptr;
    }

    QPointer<ctlBoxPicture> picture_;
    int place_;
};

class PictureAccess final : public PartsAccess {
  public:
    explicit PictureAccess(ctlBoxPicture& picture) : PartsAccess(picture), picture_(picture) {}

    int childCount() const override { return static_cast<int>(picture_.Plan().parts.size()); }
    QAccessibleInterface* childAt(int x, int y) const override {
        return child(picture_.Plan().PartAt(picture_.mapFromGlobal(QPoint(x, y))));
    }
    QAccessibleInterface* focusChild() const override { return child(picture_.Marks().focus); }

  private:
    QAccessibleInterface* MakePart(int place) const override { return new PartAccess(picture_, place); }

    ctlBoxPicture& picture_;
};

QAccessibleInterface* Make(const QString&, QObject* object) {
    auto* picture = qobject_cast<ctlBoxPicture*>(object);
    return picture == nullptr ? nullptr : new PictureAccess(*picture);
}

}  // namespace

void InstallBoxAccess() {
    QAccessible::installFactory(Make);
}

void TellBoxFocus(ctlBoxPicture& picture) {
    if (!QAccessible::isActive() || !picture.hasFocus()) return;
    QAccessibleEvent event(&picture, QAccessible::Focus);
    event.setChild(picture.Marks().focus);
    QAccessible::updateAccessibility(&event);
}

}  // namespace calyx::ui
