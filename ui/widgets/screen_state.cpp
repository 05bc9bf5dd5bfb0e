#include "ui/widgets/screen_state.h"

#include <algorithm>
#include <map>
#include <utility>

#include "model/language/text.h"

namespace calyx::ui {

namespace {

std::vector<std::string> RecordsOf(const CWidgets& widgets) {
    std::vector<std::string> records;
    for (const int number : widgets.Numbers()) records.push_back(widgets.widget(number).Record());
    return records;
}

}  // namespace

ScreenState::ScreenState(DocumentSession& session, QObject* parent) : QObject(parent), session_(session) {
    records_ = RecordsOf(Widgets());
    connect(&session_, &DocumentSession::Changed, this,
            [this](const ChangeSet& changes) { Follow(changes, false); });
    connect(&session_, &DocumentSession::Replaced, this, [this] { Follow({}, true); });
}

bool ScreenState::IsChosen(int number) const {
    return std::binary_search(chosen_.begin(), chosen_.end(), number);
}

void ScreenState::ShowScreen(int screen) {
    if (screen == screen_ || screen < 1 || screen > kScreens) return;
    screen_ = screen;
    chosen_.clear();
    lead_ = 0;
    emit ScreenShown();
    emit ChosenChanged();
}

void ScreenState::Choose(std::vector<int> numbers, int lead) {
    touched_.clear();
    if (!numbers.empty()) ShowScreen(Widgets().widget(numbers.front()).ScreenNumber());
    SetChosen(std::move(numbers), lead);
    emit ChosenChanged();
}

void ScreenState::SetChosen(std::vector<int> numbers, int lead) {
    std::sort(numbers.begin(), numbers.end());
    numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
    chosen_ = std::move(numbers);
    lead_ = IsChosen(lead) ? lead : (chosen_.empty() ? 0 : chosen_.back());
}

bool ScreenState::TakeTouched(std::string_view key) {
    if (std::exchange(touched_, {}).empty()) return false;
    return !last_.Where([key](const Change& change) { return EqualNoCase(change.key, key); }).Empty();
}

void ScreenState::Toggle(int number) {
    std::vector<int> numbers = chosen_;
    if (IsChosen(number)) {
        std::erase(numbers, number);
        Choose(std::move(numbers), lead_);
    } else {
        numbers.push_back(number);
        Choose(std::move(numbers), number);
    }
}

// Widgets are known again by their records. What has a record that was not there before is what the change
// was about, and is chosen; without any the choice goes with its records to their new numbers.
void ScreenState::Follow(const ChangeSet& changes, bool anew) {
    std::vector<std::string> now = RecordsOf(Widgets());
    if (!anew && now == records_) return;
    std::multimap<std::string, int> free;  // the new numbers of records that were there
    for (std::size_t i = 0; i < now.size(); ++i) free.emplace(now[i], static_cast<int>(i) + 1);
    std::map<int, int> moved;
    for (std::size_t i = 0; i < records_.size(); ++i) {
        const auto found = free.find(records_[i]);
        if (found == free.end()) continue;
        moved.emplace(static_cast<int>(i) + 1, found->second);
        free.erase(found);
    }
    touched_.clear();
    for (const auto& [record, number] : free) touched_.push_back(number);
    std::sort(touched_.begin(), touched_.end());
    if (keeps_ > 0) touched_.clear();
    last_ = changes;
    std::vector<int> chosen;
    int lead = 0;
    if (anew) {
        touched_.clear();
        screen_ = 1;
        if (!now.empty() && Widgets().OnScreen(1).empty()) screen_ = Widgets().widget(1).ScreenNumber();
    } else if (keeps_ > 0) {
        chosen = chosen_;
        lead = lead_;
        if (!chosen.empty()) screen_ = Widgets().widget(chosen.front()).ScreenNumber();
    } else if (touched_.empty()) {
        for (const int number : chosen_) {
            if (moved.contains(number)) chosen.push_back(moved[number]);
        }
        if (moved.contains(lead_)) lead = moved[lead_];
    } else {
        const bool here = std::any_of(touched_.begin(), touched_.end(), [this](int number) {
            return Widgets().widget(number).ScreenNumber() == screen_;
        });
        if (!here) screen_ = Widgets().widget(touched_.front()).ScreenNumber();
        chosen = touched_;
    }
    std::erase_if(chosen, [this](int number) { return Widgets().widget(number).ScreenNumber() != screen_; });
    records_ = std::move(now);
    SetChosen(std::move(chosen), lead);
    emit WidgetsChanged();
}

}  // namespace calyx::ui
