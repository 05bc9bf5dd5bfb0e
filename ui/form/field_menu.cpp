#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QToolTip>
#include <algorithm>

#include "model/language/text.h"
#include "ui/form/field.h"
#include "ui/form/firmware_dialog.h"
#include "ui/form/form_texts.h"
#include "ui/form/help_popup.h"
#include "ui/form/words.h"

// The menu of a field. A command that has nothing to do says so instead of being grey.
namespace calyx::ui::form {

namespace {

// Instead of the box's own menu, whose undo knows nothing of the document.
template <class Box>
void AddEditing(QMenu& menu, Box& box, bool hasSelection, bool isEmpty, const ResourceTexts& texts) {
    const auto add = [&](int text, const QKeySequence& key, auto command) {
        QAction* action = menu.addAction(Say(texts, text));
        action->setShortcut(key);
        QObject::connect(action, &QAction::triggered, &box, command);
    };
    if (hasSelection) {
        add(kCut, QKeySequence::Cut, &Box::cut);
        add(kCopy, QKeySequence::Copy, &Box::copy);
    }
    if (!QGuiApplication::clipboard()->text().isEmpty()) add(kPaste, QKeySequence::Paste, &Box::paste);
    if (!isEmpty) add(kSelectAll, QKeySequence::SelectAll, &Box::selectAll);
    if (!menu.isEmpty()) menu.addSeparator();
}

}  // namespace

QMenu* Field::MakeMenu() {
    auto* menu = new QMenu(ControlWidget());
    menu->setAttribute(Qt::WA_DeleteOnClose);
    if (auto* line = qobject_cast<QLineEdit*>(ControlWidget()))
        AddEditing(*menu, *line, line->hasSelectedText(), line->text().isEmpty(), texts_);
    if (auto* text = qobject_cast<QPlainTextEdit*>(ControlWidget()))
        AddEditing(*menu, *text, text->textCursor().hasSelection(), text->document()->isEmpty(), texts_);
    const auto add = [&](int text, void (Field::*command)()) {
        connect(menu->addAction(Say(texts_, text)), &QAction::triggered, this, command);
    };
    const auto parameter = Find();
    if (parameter && parameter->Info().more.use != Use::ReadOnly) {
        add(kMenuDefault, &Field::ResetToDefault);
        add(kMenuRevert, &Field::Revert);
        menu->addSeparator();
    }
    add(kMenuHelp, &Field::ShowHelp);
    add(kMenuCopy, &Field::CopyAsLine);
    add(kMenuLines, &Field::ShowLine);
    add(kMenuFirmware, &Field::ShowFirmware);
    return menu;
}

void Field::Tell(const QString& note) {
    QToolTip::showText(ControlWidget()->mapToGlobal(QPoint(0, ControlWidget()->height())), note,
                       ControlWidget());
}

void Field::ShowHelp() {
    (new HelpPopup(caption_, ControlWidget()->toolTip(), ControlWidget()))->Open();
}

void Field::ResetToDefault() {
    GiveUp();
    if (text_ == defaultText_) return Tell(Say(texts_, kIsDefault));
    if (control_->MayTake(defaultText_)) session_.SetParameter(key_, defaultText_, false);
}

void Field::Revert() {
    GiveUp();
    std::vector<KeyValue> saved;
    bool changed = false;
    const ChangeSet sinceSave = session_.ChangesSinceSave();
    for (const Change& change : sinceSave.Changes()) {
        if (!Covers(change.key) || !IsChange(change)) continue;
        changed = true;
        if (change.before) saved.push_back({change.key, *change.before});
    }
    if (!changed) return Tell(Say(texts_, kIsUnchanged));
    if (lineKeys_.size() == 1) {
        if (!session_.RevertParameter(lineKeys_.front())) Tell(Say(texts_, kIsUnchanged));
    } else if (!saved.empty()) {
        session_.Edit(saved, caption_.toStdString());  // the lines of one choice go back together
    }
}

void Field::CopyAsLine() {
    QStringList lines;
    if (const auto parameter = Find()) {
        for (const KeyValue& line : parameter->Lines()) lines += ToShown(line.key + "=" + line.value);
        if (lines.isEmpty()) lines += ToShown(parameter->Key() + "=" + parameter->Text());
    }
    QGuiApplication::clipboard()->setText(lines.join(u'\n'));
}

void Field::ShowLine() {
    if (lineKeys_.empty()) return Tell(Say(texts_, kNeverInLines));
    emit ShowInLines(ShownKey());
}

void Field::ShowFirmware() {
    const auto parameter = Find();
    if (!parameter || lineKeys_.empty()) return Tell(Say(texts_, kNeverInLines));
    auto* dialog = new FirmwareDialog(texts_, *parameter, ControlWidget()->window());
    dialog->open();
}

}  // namespace calyx::ui::form
