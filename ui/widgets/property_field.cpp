#include "ui/widgets/property_field.h"

#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>

#include "ui/form/bytes.h"
#include "ui/form/parameter.h"
#include "ui/form/words.h"
#include "ui/text.h"
#include "ui/theme/metrics.h"
#include "ui/theme/theme.h"
#include "ui/widgets/widget_texts.h"

namespace calyx::ui {

using form::Entry;

namespace {

// As wide as the column, whatever its longest entry.
void Narrow(QWidget& widget) {
    if (auto* box = qobject_cast<QComboBox*>(&widget)) {
        box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        box->setMinimumContentsLength(6);
    }
    widget.setMinimumWidth(0);
    widget.setMaximumWidth(QWIDGETSIZE_MAX);
    widget.setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

}  // namespace

PropertyField::PropertyField(DocumentSession& session, ScreenState& state, ScreenEdits& edits,
                             const Item& like, std::size_t row, QWidget* parent)
    : session_(session),
      state_(state),
      edits_(edits),
      stem_(like.Info(row).stem),
      group_(like.Info(row).more.group),
      label_(new QLabel(parent)),
      unit_(new QLabel(parent)),
      message_(new QLabel(parent)) {
    const ResourceTexts& texts = state_.Texts();
    const form::Parameter parameter(like, row);
    const RowInfo& info = parameter.Info();
    control_ = form::MakeControl(parameter, texts, parent);
    help_ = Say(texts, info.more.help);
    if (info.more.HasRange() && parameter.List() == nullptr) {
        const form::RangeEnds ends = form::RangeWords(info, parent->locale());
        help_ = Say(texts, widget_text::kAllowedText, help_, ends.least, ends.most);
    }
    const QString name = QStringLiteral("property.") + ToShown(stem_);
    QWidget* widget = ControlWidget();
    Narrow(*widget);
    widget->setObjectName(name);
    widget->setToolTip(help_);
    widget->installEventFilter(this);
    label_->setText(form::Caption(texts, parameter));
    label_->setBuddy(widget);
    label_->setToolTip(help_);
    label_->setMinimumHeight(metrics::kControlHeight);
    unit_->setText(ToShown(info.more.unit));
    unit_->setForegroundRole(role::kQuietText);
    message_->setObjectName(name + QStringLiteral(".message"));
    message_->setFont(TextFont(TextSize::Small));
    message_->setForegroundRole(role::kProblem);
    message_->setTextFormat(Qt::PlainText);
    message_->setWordWrap(true);
    message_->hide();
    connect(control_.get(), &form::Control::Edited, this,
            [this](bool typing) { Take(control_->Read(false), typing); });
    connect(&session_, &DocumentSession::Finishing, this, [this](QStringList* wrong) {
        if (entry_.state == Entry::State::Right) return;
        Take(control_->Read(true), true);
        if (entry_.state != Entry::State::Right) *wrong += Caption() + QStringLiteral(": ") + entry_.words;
    });
    connect(&session_, &DocumentSession::GivingUp, this, [this] {
        if (entry_.state != Entry::State::Right) GiveUp();
    });
}

void PropertyField::Take(const Entry& entry, bool typing) {
    const ScreenState::Keep keep(state_);
    entry_ = entry;
    writing_ = true;
    if (entry.state == Entry::State::Right) {
        if (const auto refused = edits_.SetProperty(stem_, entry.text, typing)) {
            entry_ = {Entry::State::Wrong, {}, ToShown(*refused)};
            if (!typing) ShowValue();
        }
    }
    // Its beginning was right and is in the document: "31" of "319x".
    if (entry_.state != Entry::State::Right) session_.TakeBackTyping(JoinKey());
    writing_ = false;
    ShowMessage();
}

void PropertyField::Leave() {
    if (entry_.state != Entry::State::Right) Take(control_->Read(true), true);
    session_.EndTyping();
    GiveUp();
}

void PropertyField::GiveUp() {
    entry_ = {};
    ShowValue();
    ShowMessage();
}

void PropertyField::ShowValue() {
    const QString words = Say(state_.Texts(), widget_text::kDifferent);
    const bool box = qobject_cast<QComboBox*>(ControlWidget()) != nullptr;
    control_->Show(!different_ ? text_ : box ? Utf8(words) : std::string());
    if (auto* line = qobject_cast<QLineEdit*>(ControlWidget()))
        line->setPlaceholderText(different_ ? words : QString());
}

void PropertyField::Refresh() {
    bool first = true, different = false;
    std::string text;
    for (const int number : state_.Chosen()) {
        const Item& item = state_.Widgets().widget(number).Properties();
        const auto row = item.Find(stem_);
        if (!row) return;
        const std::string own = item.Text(*row);
        different = different || (!first && own != text);
        if (first) text = own;
        first = false;
    }
    text_ = text;
    different_ = different;
    if (writing_) return;
    entry_ = {};
    ShowValue();
    ShowMessage();
}

void PropertyField::ShowMessage() {
    const QString words = entry_.state == Entry::State::Right ? QString() : entry_.words;
    message_->setForegroundRole(entry_.state == Entry::State::Wrong ? role::kProblem : role::kQuietText);
    message_->setText(words);
    message_->setVisible(!words.isEmpty());
    ControlWidget()->setAccessibleDescription(ToShown(stem_) + QStringLiteral(". ") + help_ +
                                              (words.isEmpty() ? words : u' ' + words));
}

// Undo is the document's, not a box's own; but what was typed and not taken goes first.
bool PropertyField::eventFilter(QObject*, QEvent* event) {
    switch (event->type()) {
        case QEvent::FocusIn:
            emit Focused();
            return false;
        case QEvent::FocusOut: {
            const auto reason = static_cast<QFocusEvent*>(event)->reason();
            if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason &&
                reason != Qt::MenuBarFocusReason) {
                Leave();
            }
            return false;
        }
        case QEvent::ShortcutOverride:
        case QEvent::KeyPress: {
            auto* key = static_cast<QKeyEvent*>(event);
            const bool undo = key->matches(QKeySequence::Undo), redo = key->matches(QKeySequence::Redo);
            const bool back = entry_.state != Entry::State::Right && (undo || key->key() == Qt::Key_Escape);
            if (!back && !undo && !redo) return false;
            if (event->type() == QEvent::ShortcutOverride) {
                event->setAccepted(back);
                return true;
            }
            if (back) GiveUp();
            return back || qobject_cast<QLineEdit*>(ControlWidget()) != nullptr;
        }
        default:
            return false;
    }
}

}  // namespace calyx::ui
