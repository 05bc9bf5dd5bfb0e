#include "ui/document_session.h"

#include <algorithm>

#include "model/language/text.h"

namespace calyx::ui {

DocumentSession::DocumentSession(ModelContext& context, QObject* parent)
    : QObject(parent), context_(context), document_(context) {
    New();
}

void DocumentSession::New() {
    CIndicator fresh(context_);
    fresh.Initialize();
    document_ = std::move(fresh);
    report_ = {};
    history_.Clear();
    TakeBaseline();
    emit Replaced();
}

void DocumentSession::Open(const std::string& filename, bool skipChecks) {
    CIndicator opened(context_);
    report_ = opened.Load(filename, skipChecks);
    document_ = std::move(opened);
    history_.Clear();
    TakeBaseline();
    emit Replaced();
}

void DocumentSession::OpenText(std::string text, const std::string& filename) {
    CIndicator opened(context_);
    report_ = opened.LoadText(std::move(text), filename);
    document_ = std::move(opened);
    history_.Clear();
    TakeBaseline();
    emit Replaced();
}

void DocumentSession::Save(const std::string& filename) {
    document_.Save(filename, false);
    history_.Seal();
    TakeBaseline();
    emit Saved();
}

std::vector<Refusal> DocumentSession::Edit(const std::vector<KeyValue>& lines, const std::string& name,
                                           const std::string& joinKey) {
    CIndicator::Taken taken = document_.Import(lines);
    if (taken.changes.Empty()) return taken.refused;
    history_.Record(name.empty() ? StepName(lines.front().key, taken.changes) : name, taken.changes, joinKey);
    Announce(taken.changes);
    return taken.refused;
}

std::optional<std::string> DocumentSession::SetParameter(const std::string& key, const std::string& text,
                                                         bool typing) {
    const auto refused = Edit({{key, text}}, {}, typing ? key : std::string());
    if (!typing) history_.Seal();
    return refused.empty() ? std::nullopt : std::optional(refused.front().reason);
}

std::optional<std::string> DocumentSession::Check(const std::string& key, const std::string& text) const {
    CIndicator scratch = document_;
    const auto taken = scratch.Import({{key, text}});
    return taken.refused.empty() ? std::nullopt : std::optional(taken.refused.front().reason);
}

void DocumentSession::RevertParameter(const std::string& key) {
    const ChangeSet back =
        ChangesSinceSave().Inverse().Where([&](const Change& c) { return EqualNoCase(c.key, key); });
    const ChangeSet effect = document_.Apply(back).changes;
    history_.Record(StepName(key, effect), effect);
    Announce(effect);
}

void DocumentSession::Undo() {
    if (const History::Step* step = history_.Undo(document_)) AnnounceAndShow(step->changes.Inverse());
}

void DocumentSession::Redo() {
    if (const History::Step* step = history_.Redo(document_)) AnnounceAndShow(step->changes);
}

std::optional<std::string> DocumentSession::UndoName() const {
    const History::Step* step = history_.NextUndo();
    return step == nullptr ? std::nullopt : std::optional(step->name);
}

std::optional<std::string> DocumentSession::RedoName() const {
    const History::Step* step = history_.NextRedo();
    return step == nullptr ? std::nullopt : std::optional(step->name);
}

ChangeSet DocumentSession::ChangesSinceSave() const {
    return Difference(savedLines_, document_.Lines());
}

std::optional<std::string> DocumentSession::SavedValue(const std::string& key) const {
    const auto found = std::find_if(savedLines_.begin(), savedLines_.end(),
                                    [&](const KeyValue& line) { return EqualNoCase(line.key, key); });
    return found == savedLines_.end() ? std::nullopt : std::optional(found->value);
}

void DocumentSession::TakeBaseline() {
    savedLines_ = document_.Lines();
}

void DocumentSession::Announce(const ChangeSet& changes) {
    if (changes.Empty()) return;
    emit Changed(changes);
}

void DocumentSession::AnnounceAndShow(const ChangeSet& changes) {
    Announce(changes);
    if (!changes.Empty()) emit GoTo(QString::fromLatin1(changes.Changes().front().key));
}

// "Unit ID: 1 to GATE-N": by the caption and the words that people see.
std::string DocumentSession::StepName(const std::string& key, const ChangeSet& changes) const {
    for (const Section* section : document_.Sections()) {
        for (const Item* item : section->Items()) {
            const auto row = item->Find(key);
            if (!row) continue;
            const int label = item->Info(*row).more.label;
            std::string name = label == 0 ? key : context_.texts.Text(label);
            const std::string title = section->ItemTitle(*item);
            if (!title.empty()) name = title + ": " + name;
            const auto& all = changes.Changes();
            const auto change = std::find_if(all.begin(), all.end(),
                                             [&](const Change& c) { return EqualNoCase(c.key, key); });
            if (change == all.end()) return name;
            const auto shown = [&](const std::optional<std::string>& value) {
                const CTextList* list = item->List(*row);
                const std::string* text = value && list != nullptr ? list->Item(*value) : nullptr;
                return text != nullptr ? *text : value.value_or("");
            };
            return name + ": " + shown(change->before) + " to " + shown(change->after);
        }
    }
    return key;
}

}  // namespace calyx::ui
