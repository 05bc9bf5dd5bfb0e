#include "ui/form/field.h"

#include <QAbstractButton>
#include <QKeyEvent>
#include <QLineEdit>
#include <algorithm>

#include "model/language/text.h"
#include "ui/form/form_texts.h"
#include "ui/form/words.h"
#include "ui/theme/metrics.h"
#include "ui/theme/theme.h"

namespace calyx::ui::form {

namespace {

void SetBold(QWidget* widget, bool bold) {
    QFont font = widget->font();
    if (font.bold() == bold) return;
    font.setBold(bold);
    widget->setFont(font);
}

}  // namespace

Field::Field(DocumentSession& session, std::string section, std::string key, QWidget* parent,
             const ControlMaker& make)
    : session_(session),
      texts_(session.Context().texts),
      section_(std::move(section)),
      key_(std::move(key)),
      mark_(new Mark(parent)),
      label_(new QLabel(parent)) {
    const Parameter parameter = *Find();
    const RowInfo& info = parameter.Info();
    group_ = info.more.group;
    defaultText_ = parameter.DefaultText();
    for (const KeyValue& line : parameter.Lines()) lineKeys_.push_back(line.key);
    if (make) control_ = make(parameter, parent);
    if (control_ == nullptr) {
        const auto offers = [this] { return References(session_.Document(), key_); };
        control_ = MakeControl(parameter, texts_, parent, IsReference(key_) ? Offers(offers) : Offers());
    }
    unit_ = new QLabel(ToShown(info.more.unit), parent);
    message_ = new QLabel(parent);
    caption_ = Caption(texts_, parameter);
    description_ = Description(texts_, parameter);

    const QString name = ToShown(key_), tip = ToolTip(texts_, parameter, parent->locale());
    QWidget* widget = ControlWidget();
    widget->setObjectName(name);
    widget->setToolTip(tip);
    widget->installEventFilter(this);
    label_->setObjectName(name + QStringLiteral(".label"));
    label_->setBuddy(widget);
    label_->setToolTip(tip);
    label_->setMinimumHeight(metrics::kControlHeight);
    label_->installEventFilter(this);
    mark_->setObjectName(name + QStringLiteral(".mark"));
    message_->setObjectName(name + QStringLiteral(".message"));
    message_->setFont(TextFont(TextSize::Small));
    message_->setTextFormat(Qt::PlainText);
    message_->setWordWrap(true);
    message_->hide();
    unit_->setForegroundRole(role::kQuietText);
    SetCaption(caption_);
    connect(control_.get(), &Control::Edited, this,
            [this](bool typing) { Take(control_->Read(false), typing); });
    connect(&session_, &DocumentSession::Finishing, this, [this](QStringList* wrong) { Finish(*wrong); });
    connect(&session_, &DocumentSession::GivingUp, this, [this] {
        if (entry_.state != Entry::State::Right) GiveUp();
    });
}

QString Field::ShownKey() const {
    return ToShown(lineKeys_.empty() ? key_ : lineKeys_.front());
}

bool Field::Covers(const std::string& key) const {
    const auto same = [&](const std::string& own) { return EqualNoCase(own, key); };
    return same(key_) || std::any_of(lineKeys_.begin(), lineKeys_.end(), same);
}

void Field::SetCaption(const QString& withMnemonic) {
    label_->setText(withMnemonic);
}

std::optional<Parameter> Field::Find() const {
    return FindParameter(session_.Document(), section_, key_);
}

void Field::Take(const Entry& entry, bool typing) {
    entry_ = entry;
    if (entry.state == Entry::State::Right && !control_->MayTake(entry.text)) return GiveUp();
    if (entry.state == Entry::State::Right) {
        writing_ = true;
        const auto refused = session_.SetParameter(key_, entry.text, typing);
        writing_ = false;
        if (refused) entry_ = {Entry::State::Wrong, {}, ToShown(*refused)};
        // A choice has nothing to go on typing.
        if (refused && !typing) control_->Show(text_);
    }
    if (entry_.state != Entry::State::Right && !entry_.kept) {
        // Its beginning was right and is in the document: "500" of "50000".
        writing_ = true;
        session_.TakeBackTyping(key_);
        writing_ = false;
    }
    ShowMessage();
}

void Field::Leave() {
    if (entry_.state != Entry::State::Right) Take(control_->Read(true), true);
    session_.EndTyping();
    if (!entry_.kept) GiveUp();
}

void Field::Finish(QStringList& wrong) {
    if (entry_.state == Entry::State::Right) return;
    Take(control_->Read(true), true);
    if (entry_.state == Entry::State::Right) return;
    wrong += entry_.words.isEmpty() ? caption_ : caption_ + QStringLiteral(": ") + entry_.words;
}

void Field::GiveUp() {
    entry_ = {};
    control_->Show(text_);
    ShowMessage();
}

void Field::Refresh(const PageState& state, bool anew) {
    const auto parameter = Find();
    SetPresent(parameter && parameter->IsPresent());
    if (!parameter) return;
    const std::string text = parameter->Text();
    const bool changed = text != text_;
    text_ = text;
    if (anew || (changed && !writing_)) {
        entry_ = {};
        control_->Show(text_);
    }
    if (parameter->Info().more.unit.empty()) unit_->setText(control_->Sign());
    unit_->setVisible(present_ && !unit_->text().isEmpty());
    SetBold(control_->ShowsText() ? ControlWidget() : label_,
            text_ != defaultText_ && parameter->Info().more.use != Use::ReadOnly);
    GatherMarks(*parameter, state);
    ShowMessage();
}

void Field::SetPresent(bool present) {
    if (present == present_) return;
    present_ = present;
    for (QWidget* widget : std::initializer_list<QWidget*>{mark_, label_, ControlWidget()})
        widget->setVisible(present);
    unit_->setVisible(present && !unit_->text().isEmpty());
}

void Field::GatherMarks(const Parameter& parameter, const PageState& state) {
    markWords_.clear();
    markIcon_ = IconName::Changed;
    problem_.clear();
    bool differs = false;
    for (const std::string& line : lineKeys_) {
        const std::string key = Upper(line);
        differs = differs || state.differing.contains(key);
        const auto change = state.sinceSave.find(key);
        if (change != state.sinceSave.end() && IsChange(change->second) && markWords_.isEmpty()) {
            markWords_ += ChangeWords(parameter, change->second);
        }
        const auto rule = state.problems.find(key);
        if (problem_.isEmpty() && rule != state.problems.end()) problem_ = ToShown(rule->second);
    }
    if (differs) {
        markIcon_ = IconName::Differs;
        markWords_ += Say(texts_, kMarkDiffers);
    }
    // Here the caption is not needed once more.
    const QString start = caption_ + QStringLiteral(": ");
    if (!problem_.startsWith(start)) return;
    problem_.remove(0, start.size());
    if (!problem_.isEmpty()) problem_[0] = problem_[0].toUpper();
}

// A line that came or went with others, and says what holds without it, is no change of the value.
bool Field::IsChange(const Change& change) const {
    return !EqualNoCase(change.key, key_) || change.before.value_or(defaultText_) != text_;
}

QString Field::ChangeWords(const Parameter& parameter, const Change& change) const {
    if (!change.before) return Say(texts_, kMarkNew);
    // What a choice of the page was before is not to be told from one of its lines.
    const bool own = EqualNoCase(change.key, key_);
    return Say(texts_, kMarkChanged,
               own ? ValueWords(texts_, parameter, *change.before, label_->locale())
                   : ToShown(change.key + "=" + *change.before));
}

void Field::ShowMessage() {
    const bool unfinished = entry_.state == Entry::State::Unfinished;
    const bool wrong = entry_.state == Entry::State::Wrong || (!unfinished && !problem_.isEmpty());
    const QString words = entry_.state == Entry::State::Right ? problem_ : entry_.words;
    message_->setForegroundRole(wrong ? role::kProblem : role::kQuietText);
    if (message_->text() != words) message_->setText(words);
    message_->setVisible(present_ && !words.isEmpty());
    ControlWidget()->setAccessibleDescription(words.isEmpty() ? description_ : description_ + u' ' + words);
    if (wrong) {
        mark_->Show(IconName::Problem, QStringList(Say(texts_, kMarkProblem, words)) + markWords_);
    } else if (!markWords_.isEmpty()) {
        mark_->Show(markIcon_, markWords_);
    } else {
        mark_->Clear();
    }
}

bool Field::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
        case QEvent::ContextMenu:
            MakeMenu()->popup(static_cast<QContextMenuEvent*>(event)->globalPos());
            return true;
        case QEvent::MouseButtonRelease:
            if (watched != label_ || static_cast<QMouseEvent*>(event)->button() != Qt::LeftButton)
                return false;
            ControlWidget()->setFocus(Qt::MouseFocusReason);
            if (auto* button = qobject_cast<QAbstractButton*>(ControlWidget())) button->click();
            return true;
        case QEvent::FocusIn:
            if (watched == ControlWidget()) emit Focused(ShownKey());
            return false;
        case QEvent::FocusOut: {
            const auto reason = static_cast<QFocusEvent*>(event)->reason();
            // Another window or a menu in front is no leaving.
            const bool stays = reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason ||
                               reason == Qt::MenuBarFocusReason;
            if (watched == ControlWidget() && !stays) Leave();
            return false;
        }
        case QEvent::ShortcutOverride:
        case QEvent::KeyPress:
            return watched == ControlWidget() && HoldsKeys(event);
        default:
            return false;
    }
}

// Undo and redo are the document's, not a box's own; but what was typed and not taken goes first.
bool Field::HoldsKeys(QEvent* event) {
    auto* key = static_cast<QKeyEvent*>(event);
    if (key->key() == Qt::Key_F1) {
        event->accept();
        if (event->type() == QEvent::KeyPress) ShowHelp();
        return true;
    }
    const bool untaken = entry_.state != Entry::State::Right;
    const bool undo = key->matches(QKeySequence::Undo), redo = key->matches(QKeySequence::Redo);
    const bool back = untaken && (undo || key->key() == Qt::Key_Escape);
    if (!back && !undo && !redo) return false;
    if (event->type() == QEvent::ShortcutOverride) {
        event->setAccepted(back);
        return true;
    }
    if (!back)
        return event->type() == QEvent::KeyPress && qobject_cast<QLineEdit*>(ControlWidget()) != nullptr;
    GiveUp();
    return true;
}

}  // namespace calyx::ui::form
