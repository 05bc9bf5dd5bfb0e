#include "model/document/history.h"

namespace calyx {

void History::Record(std::string name, ChangeSet changes, std::string joinKey) {
    if (changes.Empty()) return;
    steps_.resize(at_);
    const bool joins = !sealed_ && !joinKey.empty() && at_ > 0 && steps_.back().joinKey == joinKey;
    sealed_ = false;
    if (!joins) {
        steps_.push_back({std::move(name), std::move(changes), std::move(joinKey)});
    } else {
        Step& last = steps_.back();
        last.changes = last.changes.Then(changes);
        last.name = std::move(name);
        // Back where it began: no step, and the one before it stays as it was.
        sealed_ = last.changes.Empty();
        if (sealed_) steps_.pop_back();
    }
    at_ = steps_.size();
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
