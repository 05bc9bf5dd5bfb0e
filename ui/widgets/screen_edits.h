#pragma once

#include <functional>
#include <optional>
#include <string>

#include "ui/widgets/arrange.h"
#include "ui/widgets/screen_state.h"

namespace calyx::ui {

enum class Order { ToFront, Forward, Backward, ToBack };

// What a person does with the widgets that are chosen. Each is one step of undo; what cannot be done is
// told, with the way out, and changes nothing.
class ScreenEdits {
  public:
    // Both outlive the edits. `locked`: whether widgets keep their place and size.
    ScreenEdits(DocumentSession& session, ScreenState& state, std::function<bool()> locked);

    void Add(WidgetKind kind, QPoint corner);
    // A gesture's end: what the widgets have become.
    void SetAreas(const Areas& areas, int step);
    // `again`: a key that is held, which goes on with its step.
    void Nudge(QPoint by, bool again);
    void Grow(QPoint by, bool again);

    void Align(Edge edge);
    void SpreadEvenly(Qt::Orientation direction);
    void MakeAlike(bool width, bool height);
    void Reorder(Order order);

    void Copy();
    void Cut();
    void Paste();
    void Duplicate();
    void Delete();
    void SelectAll();
    // The widgets of a screen of another file, onto the screen shown. How many; an Error of the file.
    int ImportScreen(const std::string& filename, int from);

    // Sets a property of all that are chosen. What is wrong comes back in words, and nothing changes.
    std::optional<std::string> SetProperty(std::string_view stem, const std::string& text, bool typing);

    // The chosen widgets that may be moved (told when there are none), or may be sized.
    Areas Movable() const;
    bool MayMove() const;  // not locked; told
    void Tell(int text) const;

  private:
    using Act = std::function<void(CWidgets& copy)>;

    // Lines of widgets, onto the screen shown. How many.
    int PasteLines(const std::string& lines, int step);
    ChangeSet ChangesOf(const Act& act) const;
    bool Run(const QString& name, const Act& act);  // false: nothing changed, which is told
    void Hold(int step, const std::string& joinKey, bool again, const Areas& areas);
    Areas Chosen(bool (*has)(WidgetKind)) const;
    QString Step(int text, const std::vector<int>& numbers) const;
    bool NeedChosen() const;
    const ResourceTexts& Texts() const { return state_.Texts(); }

    DocumentSession& session_;
    ScreenState& state_;
    std::function<bool()> locked_;
};

}  // namespace calyx::ui
