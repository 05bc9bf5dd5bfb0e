#include "ui/widgets/screen_accessible.h"

#include <QAccessible>
#include <QPointer>
#include <algorithm>

#include "ui/parts_access.h"
#include "ui/widgets/ctl_screen.h"
#include "ui/widgets/widget_words.h"

namespace calyx::ui {

namespace {

// The widget at a place in the order of the screen; what stands there may change.
class WidgetAccess final : public QAccessibleInterface, public QAccessibleActionInterface {
  public:
    WidgetAccess(ctlScreen& screen, int place) : screen_(&screen), place_(place) {}

    bool isValid() const override { return Number() != 0; }
    QObject* object() const override { return nullptr; }
    QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(screen_); }
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QAccessible::Role role() const override { return QAccessible::ListItem; }
    QString text(QAccessible::Text kind) const override {
        if (!isValid() || kind != QAccessible::Name) return {};
        return PlaceWords(screen_->State().Texts(), screen_->State().Widgets(), Number());
    }
    void setText(QAccessible::Text, const QString&) override {}
    QRect rect() const override {
        if (!isValid()) return {};
        const QRect own = screen_->ToWindow(ShownRect(screen_->State().Widgets(), Number())).toRect();
        return {screen_->mapToGlobal(own.topLeft()), own.size()};
    }
    QAccessible::State state() const override {
        QAccessible::State state;
        state.selectable = state.focusable = state.multiSelectable = true;
        if (!isValid()) {
            state.invalid = true;
            return state;
        }
        state.selected = screen_->State().IsChosen(Number());
        state.focused = screen_->hasFocus() && screen_->State().Lead() == Number();
        return state;
    }

    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                    : nullptr;
    }
    QStringList actionNames() const override { return {pressAction()}; }
    void doAction(const QString& action) override {
        if (action == pressAction() && isValid()) screen_->State().Choose({Number()});
    }
    QStringList keyBindingsForAction(const QString&) const override { return {}; }

  private:
    int Number() const {
        if (screen_ == nullptr) return 0;
        const std::vector<int> numbers = screen_->State().OnScreen();
        return place_ < static_cast<int>(numbers.size()) ? numbers[static_cast<std::size_t>(place_)] : 0;
    }

    QPointer<ctlScreen> screen_;
    int place_;
};

class ScreenAccess final : public PartsAccess {
  public:
    explicit ScreenAccess(ctlScreen& screen) : PartsAccess(screen), screen_(screen) {}

    int childCount() const override { return static_cast<int>(screen_.State().OnScreen().size()); }
    QAccessibleInterface* childAt(int x, int y) const override {
        for (int place = childCount() - 1; place >= 0; --place) {
            if (child(place)->rect().contains(x, y)) return child(place);
        }
        return nullptr;
    }
    QAccessibleInterface* focusChild() const override {
        const std::vector<int> numbers = screen_.State().OnScreen();
        const auto at = std::find(numbers.begin(), numbers.end(), screen_.State().Lead());
        return at == numbers.end() ? nullptr : child(static_cast<int>(at - numbers.begin()));
    }

  private:
    QAccessibleInterface* MakePart(int place) const override { return new WidgetAccess(screen_, place); }

    ctlScreen& screen_;
};

QAccessibleInterface* Make(const QString&, QObject* object) {
    auto* screen = qobject_cast<ctlScreen*>(object);
    return screen == nullptr ? nullptr : new ScreenAccess(*screen);
}

}  // namespace

void InstallScreenAccess() {
    QAccessible::installFactory(Make);
}

void TellFocus(ctlScreen& screen) {
    if (!QAccessible::isActive() || !screen.hasFocus()) return;
    const std::vector<int> numbers = screen.State().OnScreen();
    const auto at = std::find(numbers.begin(), numbers.end(), screen.State().Lead());
    if (at == numbers.end()) return;
    QAccessibleEvent event(&screen, QAccessible::Focus);
    event.setChild(static_cast<int>(at - numbers.begin()));
    QAccessible::updateAccessibility(&event);
}

}  // namespace calyx::ui
