#include "ui/dialogs/qt_dialogs.h"

#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>

#include "ui/theme/icons.h"
#include "ui/theme/metrics.h"

namespace calyx::ui {

namespace {

constexpr int kIconSize = metrics::kIconLarge;

IconName IconOf(Tone tone) {
    switch (tone) {
        case Tone::Warning:
            return IconName::Problem;
        case Tone::Information:
            return IconName::Info;
        case Tone::Question:
            break;
    }
    return IconName::Question;
}

QString AskFile(QWidget* parent, const FileQuestion& question, QFileDialog::AcceptMode mode) {
    QFileDialog dialog(parent, question.title, question.start);
    dialog.setAcceptMode(mode);
    dialog.setFileMode(mode == QFileDialog::AcceptSave ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    dialog.setNameFilters(question.filters);
    if (mode == QFileDialog::AcceptSave) {
        dialog.setDefaultSuffix(question.suffix);
        dialog.setOption(QFileDialog::DontConfirmOverwrite);
    }
    const QFileInfo start(question.start);
    if (!start.isDir()) {
        dialog.setDirectory(start.path());
        dialog.selectFile(start.fileName());
    }
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

}  // namespace

int QtDialogs::Ask(QWidget* parent, const Question& question) {
    QMessageBox box(QMessageBox::NoIcon, question.title, question.text, QMessageBox::NoButton, parent);
    box.setIconPixmap(
        Icon(IconOf(question.tone)).pixmap(QSize(kIconSize, kIconSize), box.devicePixelRatioF()));
    box.setTextFormat(Qt::PlainText);
    box.setInformativeText(question.details);
    QList<QPushButton*> buttons;
    for (const QString& caption : question.buttons) {
        // A role each would sort the buttons the platform's way; the order here is part of the question.
        buttons.append(box.addButton(caption, QMessageBox::AcceptRole));
    }
    box.setDefaultButton(buttons.value(question.standard, buttons.first()));
    box.setEscapeButton(buttons.last());
    box.exec();
    const qsizetype chosen = buttons.indexOf(qobject_cast<QPushButton*>(box.clickedButton()));
    return static_cast<int>(chosen < 0 ? buttons.size() - 1 : chosen);
}

QString QtDialogs::AskOpenFile(QWidget* parent, const FileQuestion& question) {
    return AskFile(parent, question, QFileDialog::AcceptOpen);
}

QString QtDialogs::AskSaveFile(QWidget* parent, const FileQuestion& question) {
    return AskFile(parent, question, QFileDialog::AcceptSave);
}

}  // namespace calyx::ui
