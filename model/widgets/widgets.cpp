#include "model/widgets/widgets.h"

#include <algorithm>
#include <map>
#include <optional>

#include "model/language/error.h"
#include "model/widgets/widget_record.h"

namespace calyx {

namespace {

constexpr int kSameName = 5584;  // {1} name, {2} and {3} widgets

// Why a record of a file is left out.
std::string WhyNot(std::string_view record, const ResourceTexts& texts) {
    constexpr int kNoKind = 42100, kFieldCount = 42101;  // {1} kind, {2} fields wanted, {3} fields there
    const WidgetKindInfo* kind = KindOfRecord(record);
    if (kind == nullptr) return texts.Text(kNoKind);
    return texts.Format(kFieldCount, {texts.Text(kind->name), std::to_string(kind->table->rows.size() + 1),
                                      std::to_string(Split(record, ',').size())});
}

// Whether a record can be taken; one that is not keeps its place and is refused there.
bool IsTakable(const WidgetPatterns& patterns, const std::string& record, Section::Check check) {
    if (record.find_first_of("\r\n") != std::string::npos) return false;
    const WidgetKindInfo* kind = KindOfRecord(record);
    if (kind == nullptr) return false;
    AnyWidget scratch = patterns.Make(kind->kind, 1);
    const Taken taken = Get(scratch)->TakeRecord(record);
    return taken != Taken::Not && (taken != Taken::Part || check != Section::Check::Strict);
}

}  // namespace

CWidgets::CWidgets(const ModelContext& context)
    : Section(context), patterns_(std::make_shared<WidgetPatterns>(context)) {}

std::vector<Item*> CWidgets::Items() {
    std::vector<Item*> items;
    items.reserve(places_.size() + strays_.size());
    for (WidgetLine& place : places_) items.push_back(&place);
    for (WidgetLine& stray : strays_) items.push_back(&stray);
    return items;
}

void CWidgets::Initialize() {
    places_.clear();
    strays_.clear();
}

void CWidgets::RestoreState(Dictionary& lines, ReadReport& report) {
    report.Enter(std::string(Name()));
    Initialize();
    std::vector<std::pair<int, const Dictionary::Entry*>> records;
    for (const Dictionary::Run& run : lines.Runs()) {
        if (!EqualNoCase(run.head, WidgetKeyStart())) continue;
        for (const Dictionary::Entry& entry : run.entries) {
            if (const int number = WidgetNumberOf(entry.key)) records.emplace_back(number, &entry);
        }
    }
    std::sort(records.begin(), records.end());
    places_.reserve(records.size());
    for (const auto& [number, entry] : records) {
        lines.MarkAsked(*entry);
        WidgetLine place(patterns_, static_cast<int>(places_.size()) + 1);
        const Taken taken = place.Take(0, entry->value);
        if (taken == Taken::Not) {
            report.Add({ReadNote::Kind::NotUnderstood,
                        report.Section(),
                        std::string(entry->key),
                        std::string(entry->value),
                        {},
                        entry->line,
                        WhyNot(entry->value, Context().texts)});
            continue;
        }
        if (taken != Taken::Whole) detail::Report(report, *entry, taken, false, place.Text(0));
        places_.push_back(std::move(place));
    }
    MarkSaved();
}

void CWidgets::MarkSaved() {
    CompactWidgetArray();
    std::erase_if(places_, [](const WidgetLine& place) { return place.IsGap(); });
    Section::MarkSaved();
}

void CWidgets::AppendText(std::string& out, const Target&) const {
    int number = 0;
    for (const WidgetLine& place : places_) {
        if (place.IsGap()) continue;
        out.append(WidgetKey(++number)).append(1, '=').append(place.Widget()->Record()).append("\r\n");
    }
}

std::string CWidgets::LinesToSend(const Target& target) const {
    std::string lines = "WDGT.CLR\r\n";
    std::string all;
    AppendText(all, target);
    const bool limited = !target.Opens(Since("3.01."));
    std::size_t count = 0;
    ForEachLine(all, [&](std::string_view line) {
        if (limited && ++count > kOldLimit) return;
        lines.append(line).append("\r\n");
    });
    return lines;
}

bool CWidgets::SendToIndicator(ILineSender& sender, IDownload& download) const {
    return SendLines(LinesToSend(Context().target.Gated()), sender, download);
}

std::string CWidgets::GetPrintOutput() const {
    std::string listing;
    for (const int number : Numbers()) listing += widget(number).GetPrintOutput();
    return listing.empty() ? listing : Context().texts.Text(Title()) + "\r\n" + listing;
}

std::string CWidgets::GetIWriteImportDef() const {
    std::string text = "-- Widget Aliases\r\n";
    CWidgets written = *this;  // with the numbers of its lines
    written.CompactWidgetArray();
    for (const int number : written.Numbers()) text += written.widget(number).GetIWriteImportDef();
    return text;
}

int CWidgets::WidgetCount() const {
    return static_cast<int>(std::count_if(places_.begin(), places_.end(),
                                          [](const WidgetLine& place) { return !place.IsGap(); }));
}

const CWidget& CWidgets::widget(int number) const {
    const bool there = number >= 1 && number <= static_cast<int>(places_.size());
    const CWidget* found = there ? places_[static_cast<std::size_t>(number - 1)].Widget() : nullptr;
    if (found == nullptr) FailRange(number, "widget", "1 to " + std::to_string(WidgetCount()));
    return *found;
}
CWidget& CWidgets::widget(int number) {
    return const_cast<CWidget&>(std::as_const(*this).widget(number));
}

std::vector<int> CWidgets::Numbers() const {
    std::vector<int> numbers;
    for (const WidgetLine& place : places_) {
        if (!place.IsGap()) numbers.push_back(place.Number());
    }
    return numbers;
}

std::vector<int> CWidgets::OnScreen(int screen) const {
    std::vector<int> numbers = Numbers();
    std::erase_if(numbers, [&](int number) { return widget(number).ScreenNumber() != screen; });
    return numbers;
}

WidgetLine& CWidgets::Place(int number) {
    while (static_cast<int>(places_.size()) < number) {
        places_.emplace_back(patterns_, static_cast<int>(places_.size()) + 1);
    }
    return places_[static_cast<std::size_t>(number - 1)];
}

int CWidgets::Add(WidgetKind kind, int screen) {
    NeedScreen(screen, "Add");
    const std::vector<int> numbers = Numbers();
    const int number = numbers.empty() ? 1 : numbers.back() + 1;
    if (number > kLastWidget) FailRange(number, "Add", "1 to 32767");
    Place(number).Fill(kind);
    widget(number).SetScreenNumber(screen);
    return number;
}

int CWidgets::Add(const IWidgetData& like) {
    const std::string record = like.Record();  // it may be one of these
    const int number = Add(like.WidgetType(), like.ScreenNumber());
    widget(number).TakeRecord(record);
    return number;
}

void CWidgets::Remove(int number) {
    static_cast<void>(widget(number));  // 10002
    Place(number).Clear();
}

void CWidgets::CompactWidgetArray() {
    strays_.clear();
    std::size_t next = 0;
    for (WidgetLine& place : places_) {
        place.Await(false);
        if (place.IsGap()) continue;
        WidgetLine& target = places_[next++];
        if (&target != &place) target.MoveFrom(place);
    }
}

void CWidgets::Move(int from, int to) {
    static_cast<void>(widget(from));
    static_cast<void>(widget(to));
    const WidgetLine moved = Place(from);
    const int step = from < to ? 1 : -1;
    for (int number = from; number != to; number += step) Place(number).MoveFrom(Place(number + step));
    Place(to).CopyFrom(moved);
}

// The changes become those of the array without gaps, so that a widget that goes closes its place.
void CWidgets::Prepare(std::vector<Change>& changes, Check check, const ValueOf&) {
    CompactWidgetArray();
    std::vector<std::optional<std::string>> wanted;  // the records, as they are to be
    for (const int number : Numbers()) wanted.emplace_back(widget(number).Record());
    std::vector<Change> taken;
    for (Change& change : changes) {
        const auto number = static_cast<std::size_t>(WidgetNumberOf(change.key));
        if (number != 0 && (!change.after || IsTakable(*patterns_, *change.after, check))) {
            if (wanted.size() < number) wanted.resize(number);
            wanted[number - 1] = change.after;
        } else {
            taken.push_back(std::move(change));
        }
    }
    std::erase(wanted, std::nullopt);
    for (const Change& refused : taken) {
        const int number = WidgetNumberOf(refused.key);
        if (number > static_cast<int>(wanted.size())) strays_.emplace_back(patterns_, number).Await(true);
    }
    for (std::size_t i = 0; i < wanted.size(); ++i) {
        WidgetLine& place = Place(static_cast<int>(i) + 1);
        if (place.Text(0) == *wanted[i]) continue;
        place.Await(true);
        taken.push_back({place.Key(0), std::nullopt, std::move(wanted[i])});
    }
    for (std::size_t i = wanted.size(); i < places_.size(); ++i) places_[i].Clear();
    changes = std::move(taken);
}

CWidgets::PropertyEdit CWidgets::SetProperty(int number, std::string_view property,
                                             std::string_view text) const {
    // One widget's properties take a change as the items of any section do.
    class Properties final : public Section {
      public:
        Properties(const ModelContext& context, Item& item) : Section(context), item_(item) {}
        std::string_view Name() const override { return "widgets"; }
        int Title() const override { return 0; }
        std::vector<Item*> Items() override { return {&item_}; }

      private:
        Item& item_;
    };
    const CWidget& own = widget(number);
    const auto edited = own.Copy();
    PropertyEdit edit;
    edit.refused = Properties(Context(), edited->Properties())
                       .Take({{std::string(property), std::nullopt, std::string(text)}}, Check::Strict);
    if (edited->Record() != own.Record()) {  // also a text that was cut
        edit.changes.push_back({WidgetKey(number), own.Record(), edited->Record()});
    }
    return edit;
}

void CWidgets::AddBrokenRules(CBrokenRules& rules) const {
    std::map<std::string, int> names;  // a constant can be declared once; the language ignores case
    for (const int number : Numbers()) {
        const CWidget& one = widget(number);
        one.Validate(rules);
        const auto name = one.Values().name.Trimmed();
        if (name.empty()) continue;
        const auto [first, isNew] = names.try_emplace(Upper(name), number);
        if (isNew) continue;
        rules.Add({std::string(Name()), number, WidgetKey(number),
                   Context().texts.Format(kSameName,
                                          {name, std::to_string(first->second), std::to_string(number)})});
    }
}

void CheckWidgetScales(const CWidgets& widgets, const std::function<bool(int scale)>& exists,
                       const ResourceTexts& texts, CBrokenRules& rules) {
    constexpr int kNoScale = 5586;  // {1} widget, {2} scale
    for (const int number : widgets.Numbers()) {
        const CWidget& one = widgets.widget(number);
        const int scale = one.Values().numberDisplayed;
        if (one.WidgetType() != WidgetKind::Scale || exists(scale)) continue;
        rules.Add({std::string(widgets.Name()), number, WidgetKey(number),
                   texts.Format(kNoScale, {std::to_string(number), std::to_string(scale)})});
    }
}

void CWidgets::NeedScreen(int screen, const char* operation) const {
    if (screen < 1 || screen > kScreens) FailRange(screen, operation, "1 to 20");
}

void CWidgets::FailRange(int value, const char* operation, std::string_view allowed) const {
    throw Error(code::kOutOfRange, std::string("Calyx.CWidgets.") + operation,
                Context().texts.Format(code::kOutOfRange, {std::to_string(value), allowed}));
}

}  // namespace calyx
