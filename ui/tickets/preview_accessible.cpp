#include "ui/tickets/preview_accessible.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QPointer>
#include <map>

#include "ui/tickets/ctl_ticket_preview.h"

namespace calyx::ui {

namespace {

// A printed line by its place; there may be fewer of them later.
class LineAccess final : public QAccessibleInterface {
  public:
    LineAccess(TicketCanvas& canvas, int line) : canvas_(&canvas), line_(line) {}

    bool isValid() const override { return canvas_ != nullptr && line_ < canvas_->Sheet().lines.size(); }
    QObject* object() const override { return nullptr; }
    QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(canvas_); }
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QAccessible::Role role() const override { return QAccessible::StaticText; }
    QString text(QAccessible::Text kind) const override {
        return isValid() && kind == QAccessible::Name ? canvas_->LineWords(line_) : QString();
    }
    void setText(QAccessible::Text, const QString&) override {}
    QRect rect() const override {
        if (!isValid()) return {};
        const QRect own = canvas_->LineRect(line_);
        return {canvas_->mapToGlobal(own.topLeft()), own.size()};
    }
    QAccessible::State state() const override {
        QAccessible::State state;
        state.readOnly = true;
        state.invalid = !isValid();
        return state;
    }

  private:
    QPointer<TicketCanvas> canvas_;
    int line_;
};

class CanvasAccess final : public QAccessibleWidget {
  public:
    explicit CanvasAccess(TicketCanvas& canvas)
        : QAccessibleWidget(&canvas, QAccessible::Document), canvas_(canvas) {}
    ~CanvasAccess() override {
        for (const auto& [line, id] : made_) QAccessible::deleteAccessibleInterface(id);
    }

    int childCount() const override { return static_cast<int>(canvas_.Sheet().lines.size()); }
    QAccessibleInterface* child(int line) const override {
        if (line < 0 || line >= childCount()) return nullptr;
        const auto found = made_.find(line);
        if (found != made_.end()) return QAccessible::accessibleInterface(found->second);
        auto* made = new LineAccess(canvas_, line);
        made_.emplace(line, QAccessible::registerAccessibleInterface(made));
        return made;
    }
    int indexOfChild(const QAccessibleInterface* wanted) const override {
        for (const auto& [line, id] : made_) {
            if (QAccessible::accessibleInterface(id) == wanted) return line;
        }
        return -1;
    }
    QAccessibleInterface* childAt(int x, int y) const override {
        for (int line = 0; line < childCount(); ++line) {
            if (child(line)->rect().contains(x, y)) return child(line);
        }
        return nullptr;
    }

  private:
    TicketCanvas& canvas_;
    mutable std::map<int, QAccessible::Id> made_;
};

QAccessibleInterface* Make(const QString&, QObject* object) {
    auto* canvas = qobject_cast<TicketCanvas*>(object);
    return canvas == nullptr ? nullptr : new CanvasAccess(*canvas);
}

}  // namespace

void InstallPreviewAccess() {
    QAccessible::installFactory(Make);
}

void TellPreview(TicketCanvas& canvas) {
    if (!QAccessible::isActive()) return;
    QAccessibleEvent event(&canvas, QAccessible::VisibleDataChanged);
    QAccessible::updateAccessibility(&event);
}

}  // namespace calyx::ui
