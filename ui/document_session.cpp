#include "ui/document_session.h"

#include <algorithm>
#include <utility>

#include "model/document/kept.h"
#include "model/language/text.h"

namespace calyx::ui {

namespace {

// Resource texts.
constexpr int kEmptyValue = 20204;
constexpr int kStep = 20379;  // name, value before, value after

}  // namespace

DocumentSession::DocumentSession(ModelContext& context, QObject* parent)
    : QObject(parent), context_(context), document_(context) {
    moment_.setSingleShot(true);
    moment_.setInterval(kMoment);
    connect(&moment_, &QTimer::timeout, this, &DocumentSession::Settle);
    New();
}

void DocumentSession::Use(CIndicator&& document) {
    document_ = std::move(document);
    document_.Hardware().UpdateFromIndicator(liveCards_);
}

void DocumentSession::TakeLiveCards(const std::string& reported) {
    if (reported == liveCards_) return;
    liveCards_ = reported;
    document_.Hardware().UpdateFromIndicator(liveCards_);
    Look();
    emit Changed({});
}

void DocumentSession::New() {
    CIndicator fresh(context_);
    fresh.Initialize();
    report_ = {};
    Begin(std::move(fresh));
}

void DocumentSession::Open(const std::string& filename, bool skipChecks) {
    CIndicator opened(context_);
    report_ = opened.Load(filename, skipChecks);
    Begin(std::move(opened));
}

void DocumentSession::OpenCopy(const std::string& filename, bool skipChecks) {
    CIndicator opened(context_);
    report_ = opened.Load(filename, skipChecks);
    opened.ForgetFile();
    Begin(std::move(opened));
}

void DocumentSession::Begin(CIndicator&& document) {
    Use(std::move(document));
    history_.Clear();
    TakeBaseline();
    Look();
    emit Replaced();
}

void DocumentSession::Save(const std::string& filename, CIndicator::Over over) {
    document_.Save(filename, false, over);
    EndTyping();
    TakeBaseline();
    emit Saved();
}

std::vector<Refusal> DocumentSession::Edit(const std::vector<KeyValue>& lines, const std::string& name,
                                           const std::string& joinKey) {
    CIndicator::Taken taken = document_.Import(lines);
    if (taken.changes.Empty()) return taken.refused;
    const auto naming = [&](const ChangeSet& whole) {
        return name.empty() ? StepName(lines.front().key, whole) : name;
    };
    history_.Record(naming, taken.changes, joinKey);
    Announce(taken.changes, !joinKey.empty());
    return taken.refused;
}

std::vector<Refusal> DocumentSession::Do(const std::string& name,
                                         const std::function<CIndicator::Taken(CIndicator&)>& act) {
    CIndicator::Taken taken = act(document_);
    if (taken.changes.Empty()) return taken.refused;
    history_.Record(name, taken.changes);
    history_.Seal();
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

bool DocumentSession::RevertParameter(const std::string& key) {
    const ChangeSet back =
        ChangesSinceSave().Inverse().Where([&](const Change& c) { return EqualNoCase(c.key, key); });
    const ChangeSet effect = document_.Apply(back).changes;
    if (effect.Empty()) return false;
    history_.Record(StepName(key, effect), effect);
    history_.Seal();
    Announce(effect);
    return true;
}

// A line that came or went with others holds the same value as before, or its initial one.
bool DocumentSession::CanRevert(const Change& sinceSave) const {
    if (sinceSave.before && sinceSave.after) return true;
    for (const Section* section : document_.Sections()) {
        for (const Item* item : section->Items()) {
            if (item->Adopts(sinceSave.key)) return true;
            const auto row = item->Find(sinceSave.key);
            if (!row) continue;
            const auto reverted = item->Clone();
            reverted->Take(*row, sinceSave.before.value_or(item->InitialText(*row)));
            return reverted->Text(*row) != item->Text(*row);
        }
    }
    return false;
}

void DocumentSession::TakeBackTyping(const std::string& key) {
    Announce(history_.TakeBack(document_, key), true);
}

void DocumentSession::EndTyping() {
    history_.Seal();
    Settle();
}

void DocumentSession::Settle() {
    if (!unsettled_) return;
    Look();
    emit Settled();
    TellUnkept();
}

QStringList DocumentSession::FinishInput() {
    QStringList wrong;
    emit Finishing(&wrong);
    EndTyping();
    return wrong;
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

const ChangeSet& DocumentSession::ChangesSinceSave() const {
    if (!sinceSave_) sinceSave_ = Difference(savedLines_, document_.Lines());
    return *sinceSave_;
}

std::optional<std::string> DocumentSession::SavedValue(const std::string& key) const {
    const auto found = std::find_if(savedLines_.begin(), savedLines_.end(),
                                    [&](const KeyValue& line) { return EqualNoCase(line.key, key); });
    return found == savedLines_.end() ? std::nullopt : std::optional(found->value);
}

void DocumentSession::TakeBaseline() {
    savedLines_ = knownLines_ = document_.Lines();
    sinceSave_.reset();
    edited_.clear();
}

void DocumentSession::Announce(const ChangeSet& changes, bool typing) {
    if (changes.Empty()) return;
    sinceSave_.reset();
    for (const Change& change : changes.Changes()) edited_.push_back(change.key);
    unsettled_ = true;
    if (typing) {
        moment_.start();
        emit Changed(changes);
        return;
    }
    Look();
    emit Changed(changes);
    TellUnkept();
}

// What takes longer than a key may: the checks of the whole document.
void DocumentSession::Look() {
    moment_.stop();
    unsettled_ = false;
    sinceSave_.reset();
    problems_ = document_.Validate();
}

void DocumentSession::TellUnkept() {
    const std::vector<KeyValue> before = std::exchange(knownLines_, document_.Lines());
    emit Unkept(NotKept(before, document_, std::exchange(edited_, {})));
}

void DocumentSession::AnnounceAndShow(const ChangeSet& changes) {
    Announce(changes);
    QStringList keys;
    for (const Change& change : changes.Changes()) keys += QString::fromLatin1(change.key);
    if (!keys.isEmpty()) emit GoTo(keys);
}

// "Unit ID: 1 to GATE-N": by the caption and the words that people see.
std::string DocumentSession::StepName(const std::string& key, const ChangeSet& changes) const {
    const ResourceTexts& texts = context_.texts;
    for (const Section* section : document_.Sections()) {
        for (const Item* item : section->Items()) {
            const auto row = item->Find(key);
            if (!row) continue;
            const int label = item->Info(*row).more.label;
            std::string name = label == 0 ? key : texts.Text(label);
            const std::string title = section->ItemTitle(*item);
            if (!title.empty()) name = title + ": " + name;
            const auto& all = changes.Changes();
            const auto change = std::find_if(all.begin(), all.end(),
                                             [&](const Change& c) { return EqualNoCase(c.key, key); });
            if (change == all.end()) return name;
            const auto shown = [&](const std::optional<std::string>& value) {
                const CTextList* list = item->List(*row);
                const std::string* text = value && list != nullptr ? list->Item(*value) : nullptr;
                if (text != nullptr) return *text;
                return value && !value->empty() ? *value : texts.Text(kEmptyValue);
            };
            return texts.Format(kStep, {name, shown(change->before), shown(change->after)});
        }
    }
    return key;
}

}  // namespace calyx::ui
