#include "model/document/history.h"

namespace calyx {

bool History::Joins(std::string_view joinKey) const {
    return !sealed_ && !joinKey.empty() && at_ > 0 && at_ == steps_.size() &&
           steps_.back().joinKey == joinKey;
}

void History::Record(const Naming& name, ChangeSet changes, std::string joinKey) {
    if (changes.Empty()) return;
    steps_.resize(at_);
    const bool joins = Joins(joinKey);
    sealed_ = false;
    if (!joins) {
        std::string words = name(changes);
        steps_.push_back({std::move(words), std::move(changes), std::move(joinKey)});
    } else {
        Step& last = steps_.back();
        last.changes = last.changes.Then(changes);
        // Back where it began: no step, and the one before it stays as it was.
        sealed_ = last.changes.Empty();
        if (sealed_) {
            steps_.pop_back();
        } else {
            last.name = name(last.changes);
        }
    }
    at_ = steps_.size();
}

void History::Record(std::string name, ChangeSet changes, std::string joinKey) {
    Record([&name](const ChangeSet&) { return name; }, std::move(changes), std::move(joinKey));
}

ChangeSet History::TakeBack(CIndicator& document, std::string_view joinKey) {
    if (!Joins(joinKey)) return {};
    ChangeSet effect = document.Apply(steps_.back().changes.Inverse()).changes;
    steps_.pop_back();
    at_ = steps_.size();
    sealed_ = true;
    return effect;
}

void History::Seal() {
    sealed_ = true;
}

const History::Step* History::Undo(CIndicator& document) {
    if (at_ == 0) return nullptr;
    sealed_ = true;
    const Step& step = steps_[--at_];
    document.Apply(step.changes.Inverse());
    return &step;
}

const History::Step* History::Redo(CIndicator& document) {
    if (at_ == steps_.size()) return nullptr;
    sealed_ = true;
    const Step& step = steps_[at_++];
    document.Apply(step.changes);
    return &step;
}

void History::Clear() {
    *this = History();
}

}  // namespace calyx
