#include "ui/widgets/screen_edits.h"

#include <algorithm>

#include "ui/text.h"
#include "ui/widgets/widget_clipboard.h"
#include "ui/widgets/widget_look.h"
#include "ui/widgets/widget_texts.h"
#include "ui/widgets/widget_words.h"

namespace calyx::ui {

using namespace widget_text;

namespace {

WidgetArea AreaOf(const CWidget& widget, const QRect& rect) {
    WidgetArea area = widget.WidgetControl();
    area.left = rect.x();
    area.top = rect.y();
    if (HasWidth(widget.WidgetType())) area.width = rect.width();
    if (HasHeight(widget.WidgetType())) area.height = rect.height();
    return area;
}

void Place(CWidgets& widgets, const Areas& areas) {
    for (const auto& [number, rect] : areas) {
        CWidget& widget = widgets.widget(number);
        widget.SetControlToClass(AreaOf(widget, rect));
    }
}

}  // namespace

ScreenEdits::ScreenEdits(DocumentSession& session, ScreenState& state, std::function<bool()> locked)
    : session_(session), state_(state), locked_(std::move(locked)) {}

ChangeSet ScreenEdits::ChangesOf(const Act& act) const {
    CWidgets copy = state_.Widgets();
    const auto before = copy.State();
    act(copy);
    copy.CompactWidgetArray();
    return Difference(before, copy.State());
}

bool ScreenEdits::Run(const QString& name, const Act& act) {
    const ChangeSet changes = ChangesOf(act);
    if (changes.Empty()) {
        Tell(kAlreadySo);
        return false;
    }
    session_.Do(Utf8(name), [&](CIndicator& document) { return document.Apply(changes); });
    return true;
}

void ScreenEdits::Tell(int text) const {
    emit session_.Told(Say(Texts(), text));
}

QString ScreenEdits::Step(int text, const std::vector<int>& numbers) const {
    return Say(Texts(), text, WidgetsWords(Texts(), state_.Widgets(), numbers),
               QString::number(state_.Screen()));
}

bool ScreenEdits::NeedChosen() const {
    if (state_.Chosen().empty()) Tell(kChooseFirst);
    return !state_.Chosen().empty();
}

bool ScreenEdits::MayMove() const {
    if (locked_()) Tell(kLocked);
    return !locked_();
}

Areas ScreenEdits::Chosen(bool (*has)(WidgetKind)) const {
    Areas areas;
    for (const int number : state_.Chosen()) {
        if (has(state_.Widgets().widget(number).WidgetType()))
            areas.emplace(number, ShownRect(state_.Widgets(), number));
    }
    return areas;
}

Areas ScreenEdits::Movable() const {
    Areas areas = Chosen(HasPlace);
    if (areas.empty()) Tell(state_.Chosen().empty() ? kChooseFirst : kNoPlace);
    return areas;
}

void ScreenEdits::Add(WidgetKind kind, QPoint corner) {
    if (state_.Widgets().WidgetCount() >= kLastWidget) return Tell(kArrayFull);
    int added = 0;
    const QString name = Say(Texts(), kStepAdd, KindWords(Texts(), kind), QString::number(state_.Screen()));
    Run(name, [&](CWidgets& copy) {
        added = copy.Add(kind, state_.Screen());
        if (!HasPlace(kind)) return;
        Place(copy, {{added, OnScreen({corner, ShownRect(copy, added).size()})}});
    });
    state_.Choose({added});
}

void ScreenEdits::SetAreas(const Areas& areas, int step) {
    const ScreenState::Keep keep(state_);
    std::vector<int> numbers;
    for (const auto& [number, rect] : areas) numbers.push_back(number);
    Run(Step(step, numbers), [&](CWidgets& copy) { Place(copy, areas); });
}

// A key that is held makes one step: its edits are joined until another one begins.
void ScreenEdits::Hold(int step, const std::string& joinKey, bool again, const Areas& areas) {
    const ChangeSet changes = ChangesOf([&](CWidgets& copy) { Place(copy, areas); });
    if (changes.Empty()) return Tell(kAtEdge);
    const ScreenState::Keep keep(state_);
    if (!again) session_.EndTyping();
    std::vector<KeyValue> lines;
    for (const Change& change : changes.Changes()) lines.push_back({change.key, *change.after});
    session_.Edit(lines, Utf8(Step(step, state_.Chosen())), joinKey);
}

void ScreenEdits::Nudge(QPoint by, bool again) {
    const Areas areas = Movable();
    if (areas.empty() || !MayMove()) return;
    Hold(kStepMove, "WDGT move", again, Moved(areas, StepWithin(areas, by)));
}

void ScreenEdits::Grow(QPoint by, bool again) {
    Areas areas = Chosen(HasWidth);
    if (areas.empty()) return Tell(state_.Chosen().empty() ? kChooseFirst : kNoSize);
    if (!MayMove()) return;
    for (auto& [number, rect] : areas) {
        const Handle handle{by.x() == 0 ? 0 : 1,
                            HasHeight(state_.Widgets().widget(number).WidgetType()) && by.y() != 0 ? 1 : 0};
        rect = Pulled(rect, handle, by, {});
    }
    Hold(kStepResize, "WDGT size", again, areas);
}

void ScreenEdits::Align(Edge edge) {
    const Areas areas = Movable();
    if (areas.empty() || !MayMove()) return;
    const bool alone = state_.Chosen().size() == 1;
    SetAreas(Aligned(areas, alone ? kScreenRect : ShownRect(state_.Widgets(), state_.Lead()), edge),
             kStepAlign);
}

void ScreenEdits::SpreadEvenly(Qt::Orientation direction) {
    const Areas areas = Chosen(HasPlace);
    if (areas.size() < 3) return Tell(kNeedThree);
    if (MayMove()) SetAreas(Spread(areas, direction), kStepSpread);
}

void ScreenEdits::MakeAlike(bool width, bool height) {
    const Areas areas = Chosen(height ? HasHeight : HasWidth);
    if (state_.Chosen().size() < 2) return Tell(kNeedTwo);
    if (areas.empty()) return Tell(kNoSize);
    if (!MayMove()) return;
    SetAreas(Sized(areas, ShownRect(state_.Widgets(), state_.Lead()).size(), width, height), kStepSize);
}

// Among the widgets of the screen; those of other screens keep their numbers.
void ScreenEdits::Reorder(Order order) {
    if (!NeedChosen()) return;
    const std::vector<int> places = state_.OnScreen();
    std::vector<int> now = places;
    const auto chosen = [this](int number) { return state_.IsChosen(number); };
    switch (order) {
        case Order::ToFront:
            std::stable_partition(now.begin(), now.end(), [&](int n) { return !chosen(n); });
            break;
        case Order::ToBack:
            std::stable_partition(now.begin(), now.end(), chosen);
            break;
        case Order::Forward:
            for (std::size_t i = now.size(); i-- > 1;) {
                if (chosen(now[i - 1]) && !chosen(now[i])) std::swap(now[i - 1], now[i]);
            }
            break;
        case Order::Backward:
            for (std::size_t i = 1; i < now.size(); ++i) {
                if (chosen(now[i]) && !chosen(now[i - 1])) std::swap(now[i], now[i - 1]);
            }
            break;
    }
    ChangeSet changes;
    for (std::size_t i = 0; i < places.size(); ++i) {
        const CWidgets& widgets = state_.Widgets();
        const std::string before = widgets.widget(places[i]).Record();
        const std::string after = widgets.widget(now[i]).Record();
        if (before != after) changes.Add({WidgetKey(places[i]), before, after});
    }
    if (changes.Empty()) return Tell(kAlreadySo);
    std::vector<int> then;
    for (std::size_t i = 0; i < places.size(); ++i) {
        if (chosen(now[i])) then.push_back(places[i]);
    }
    session_.Do(Utf8(Step(kStepOrder, state_.Chosen())),
                [&](CIndicator& document) { return document.Apply(changes); });
    state_.Choose(then);
}

void ScreenEdits::Copy() {
    if (!NeedChosen()) return;
    CopyWidgets(state_.Widgets().CopyText(state_.Chosen()));
    emit session_.Told(Say(Texts(), kCopied, QString::number(state_.Chosen().size())));
}

void ScreenEdits::Cut() {
    if (!NeedChosen()) return;
    const std::vector<int> chosen = state_.Chosen();
    CopyWidgets(state_.Widgets().CopyText(chosen));
    Run(Step(kStepCut, chosen), [&](CWidgets& copy) {
        for (const int number : chosen) copy.Remove(number);
    });
}

void ScreenEdits::Delete() {
    if (!NeedChosen()) return;
    const std::vector<int> chosen = state_.Chosen();
    Run(Step(kStepDelete, chosen), [&](CWidgets& copy) {
        for (const int number : chosen) copy.Remove(number);
    });
}

int ScreenEdits::PasteLines(const std::string& lines, int step) {
    CWidgets scratch(session_.Context());
    std::vector<int> added = scratch.Paste(lines, state_.Screen());
    if (added.empty()) return 0;
    if (state_.Widgets().WidgetCount() > kLastWidget - static_cast<int>(added.size())) {
        Tell(kArrayFull);
        return 0;
    }
    const QString name =
        Say(Texts(), step, WidgetsWords(Texts(), scratch, added), QString::number(state_.Screen()));
    Run(name, [&](CWidgets& copy) {
        added = copy.Paste(lines, state_.Screen());
        // Copies that would cover what is there already stand beside it.
        Areas areas;
        bool covers = false;
        for (const int number : added) {
            const CWidget& one = copy.widget(number);
            if (!HasPlace(one.WidgetType())) continue;
            const QRect rect = ShownRect(copy, number);
            areas.emplace(number, rect);
            for (const int other : state_.OnScreen()) {
                covers = covers || (copy.widget(other).WidgetType() == one.WidgetType() &&
                                    ShownRect(copy, other) == rect);
            }
        }
        constexpr int kBeside = 8;
        if (covers) Place(copy, Moved(areas, StepWithin(areas, {kBeside, kBeside})));
    });
    state_.Choose(added);
    return static_cast<int>(added.size());
}

int ScreenEdits::ImportScreen(const std::string& filename, int from) {
    CWidgets scratch = state_.Widgets();
    std::vector<int> added = scratch.ImportScreen(filename, from, state_.Screen());
    if (added.empty()) return 0;
    const QString name =
        Say(Texts(), kStepImport, WidgetsWords(Texts(), scratch, added), QString::number(state_.Screen()));
    Run(name, [&](CWidgets& copy) { copy = scratch; });
    state_.Choose(added);
    return static_cast<int>(added.size());
}

void ScreenEdits::Paste() {
    const int count = PasteLines(CopiedWidgets(), kStepPaste);
    if (count == 0) return Tell(kClipboardEmpty);
    emit session_.Told(Say(Texts(), kPasted, QString::number(count)));
}

void ScreenEdits::Duplicate() {
    if (NeedChosen()) PasteLines(state_.Widgets().CopyText(state_.Chosen()), kStepDuplicate);
}

void ScreenEdits::SelectAll() {
    const std::vector<int> all = state_.OnScreen();
    if (all.empty()) {
        return emit session_.Told(Say(Texts(), kNothingHere, QString::number(state_.Screen())));
    }
    state_.Choose(all, state_.Lead());
}

std::optional<std::string> ScreenEdits::SetProperty(std::string_view stem, const std::string& text,
                                                    bool typing) {
    const ScreenState::Keep keep(state_);
    const std::vector<int> chosen = state_.Chosen();
    std::vector<KeyValue> lines;
    std::string label(stem);
    for (const int number : chosen) {
        const CWidget& widget = state_.Widgets().widget(number);
        const Item& rows = widget.Properties();
        if (const auto row = rows.Find(stem)) label = Texts().Text(rows.Info(*row).more.label);
        const auto edit = state_.Widgets().SetProperty(number, stem, text);
        if (!edit.refused.empty()) return edit.refused.front().reason;
        for (const Change& change : edit.changes) lines.push_back({change.key, *change.after});
    }
    if (lines.empty()) return std::nullopt;
    const QString name =
        Say(Texts(), kStepProperty, WidgetsWords(Texts(), state_.Widgets(), chosen), Shown(label));
    const auto refused = session_.Edit(lines, Utf8(name), typing ? "WDGT " + std::string(stem) : "");
    if (!typing) session_.EndTyping();
    if (!refused.empty()) return refused.front().reason;
    return std::nullopt;
}

}  // namespace calyx::ui
