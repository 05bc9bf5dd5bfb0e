#include "ui/link/terminal/frm_terminal.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QCompleter>
#include <QDir>
#include <QKeyEvent>
#include <QLineEdit>
#include <QProgressBar>
#include <QScopeGuard>
#include <QShortcut>
#include <system_error>

#include "model/language/reason.h"
#include "ui/dialogs/screen_fit.h"
#include "ui/form/bytes.h"
#include "ui/link/dialog_parts.h"
#include "ui/link/terminal/ctl_terminal_log.h"
#include "ui/link/terminal/frm_macro.h"
#include "ui/link/terminal/terminal_texts.h"
#include "ui/texts.h"
#include "ui/theme/theme.h"

namespace calyx::ui {

using namespace terminal_text;

namespace {

constexpr int kAnswerMs = 10'000;
constexpr int kMostHistory = 200;

QString KeyName(std::size_t number) {
    return QStringLiteral("F%1").arg(number + 1);
}

}  // namespace

frmTerminal::frmTerminal(AppContext& app, DocumentSession& session, LinkDesk& desk, Dialogs& dialogs,
                         QWidget* parent)
    : QDialog(parent),
      app_(app),
      session_(session),
      desk_(desk),
      dialogs_(dialogs),
      macroFile_(app.folders.userData + "macros.ini"),
      macros_(LoadMacroKeys(app.files, macroFile_)),
      sending_(desk.Link(), app.cancel, *this),
      log_(new ctlTerminalLog(app.model.texts, app.settings)),
      line_(new QLineEdit),
      filter_(new QLineEdit),
      hex_(new QCheckBox(Text(kHex))),
      halt_(new QCheckBox(Text(kHalt))),
      note_(MakeNote("lblNote")),
      progress_(new QProgressBar),
      send_(MakeButton(app.model.texts, kSend, "cmdSend")),
      file_(MakeButton(app.model.texts, kSendFile, "cmdSendFile")),
      cancel_(MakeButton(app.model.texts, say::kCancel, "cmdCancel")) {
    constexpr QSize kUsual(800, 560);
    setObjectName(QStringLiteral("frmTerminal"));
    setWindowTitle(Text(kTitle));
    setAttribute(Qt::WA_DeleteOnClose);
    progress_->setTextVisible(false);
    progress_->setAccessibleName(Text(say::kProgressName));
    QVBoxLayout* all = MakeColumn(*this);
    all->setContentsMargins(metrics::kGroups, metrics::kGroups, metrics::kGroups, metrics::kGroups);
    all->setSpacing(metrics::kRelated);
    all->addLayout(MakeHead());
    all->addWidget(log_, 1);
    all->addLayout(MakeMacros());
    all->addLayout(MakeLine());
    all->addWidget(note_);
    all->addWidget(progress_);
    all->addLayout(MakeButtons());
    MakeCompletion();
    ShowMacros();
    SetSending(false);
    resize(FitScreen(*this, kUsual));
    line_->setFocus();
}

void frmTerminal::Note(const QString& words, bool problem) {
    ShowNote(*note_, words, problem);
    note_->setVisible(!words.isEmpty());
}

QString frmTerminal::Text(int number) const {
    return Say(app_.model.texts, number);
}

QLayout* frmTerminal::MakeHead() {
    auto* row = new QHBoxLayout;
    row->setSpacing(metrics::kGroups);
    filter_->setObjectName(QStringLiteral("txtFilter"));
    filter_->setPlaceholderText(Text(kFilter));
    filter_->setAccessibleName(Text(kFilter));
    filter_->setClearButtonEnabled(true);
    hex_->setObjectName(QStringLiteral("chkHex"));
    hex_->setMinimumHeight(metrics::kControlHeight);
    row->addWidget(filter_, 1);
    row->addWidget(hex_);
    connect(filter_, &QLineEdit::textChanged, log_, &ctlTerminalLog::SetFilter);
    connect(hex_, &QCheckBox::toggled, log_, &ctlTerminalLog::SetHex);
    return row;
}

QLayout* frmTerminal::MakeMacros() {
    constexpr int kAcross = 6;
    auto* grid = new QGridLayout;
    grid->setSpacing(metrics::kRelated);
    for (std::size_t i = 0; i < keys_.size(); ++i) {
        auto* key = new QPushButton;
        keys_[i] = key;
        key->setObjectName(QStringLiteral("macro%1").arg(i + 1));
        key->setAutoDefault(false);
        key->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
        key->setContextMenuPolicy(Qt::ActionsContextMenu);
        auto* edit = new QAction(Text(kEditMacro), key);
        key->addAction(edit);
        connect(edit, &QAction::triggered, this, [this, i] { EditMacro(i); });
        connect(key, &QPushButton::clicked, this, [this, i] { PressMacro(i); });
        auto* shortcut = new QShortcut(QKeySequence(Qt::Key_F1 + static_cast<int>(i)), this);
        connect(shortcut, &QShortcut::activated, this, [this, i] { PressMacro(i); });
        grid->addWidget(key, static_cast<int>(i) / kAcross, static_cast<int>(i) % kAcross);
    }
    return grid;
}

QLayout* frmTerminal::MakeLine() {
    auto* row = new QHBoxLayout;
    row->setSpacing(metrics::kRelated);
    auto* label = new QLabel(Text(kLine));
    label->setBuddy(line_);
    line_->setObjectName(QStringLiteral("txtLine"));
    line_->setFont(FixedFont());
    line_->setToolTip(Text(kLineTip));
    line_->installEventFilter(this);
    send_->setDefault(true);
    row->addWidget(label);
    row->addWidget(line_, 1);
    row->addWidget(send_);
    connect(send_, &QPushButton::clicked, this, &frmTerminal::SendTyped);
    return row;
}

QLayout* frmTerminal::MakeButtons() {
    auto* row = new QHBoxLayout;
    row->setSpacing(metrics::kRelated);
    QPushButton* clear = MakeButton(app_.model.texts, kClear, "cmdClear");
    QPushButton* save = MakeButton(app_.model.texts, kSaveLog, "cmdSaveLog");
    QPushButton* close = MakeButton(app_.model.texts, say::kCloseMnemonic, "cmdClose");
    halt_->setObjectName(QStringLiteral("chkHalt"));
    halt_->setChecked(app_.settings.HaltOnDownloadError);
    halt_->setMinimumHeight(metrics::kControlHeight);
    row->addWidget(file_);
    row->addWidget(halt_);
    row->addStretch();
    row->addWidget(cancel_);
    row->addWidget(clear);
    row->addWidget(save);
    row->addWidget(close);
    connect(file_, &QPushButton::clicked, this, &frmTerminal::SendChosenFile);
    connect(cancel_, &QPushButton::clicked, this, [this] { sending_.Abort(); });
    connect(clear, &QPushButton::clicked, log_, &ctlTerminalLog::Clear);
    connect(save, &QPushButton::clicked, this, &frmTerminal::SaveLog);
    connect(close, &QPushButton::clicked, this, &frmTerminal::reject);
    return row;
}

// All keys that this configuration can have, written at present or not, and what an indicator understands
// besides.
void frmTerminal::MakeCompletion() {
    QStringList words{QStringLiteral("VERSION"), QStringLiteral("KNIX"), QStringLiteral("DUMPALL")};
    for (const Section* section : std::as_const(session_).Document().Sections()) {
        for (const Item* item : section->Items()) {
            for (std::size_t row = 0; row < item->RowCount(); ++row) {
                const Use use = item->Info(row).more.use;
                if (use == Use::Line || use == Use::ReadOnly) words += KeyText(item->Key(row));
            }
        }
    }
    words.sort();
    words.removeDuplicates();
    auto* completer = new QCompleter(words, line_);
    completer->setCaseSensitivity(Qt::CaseInsensitive);
    completer->popup()->setFont(FixedFont());
    line_->setCompleter(completer);
    // The list of completions would keep Enter to itself; one that is chosen in it is only taken into the
    // line.
    connect(line_, &QLineEdit::returnPressed, this, [this, popup = completer->popup()] {
        if (!popup->isVisible() || popup->currentIndex().isValid()) return;
        popup->hide();
        SendTyped();
    });
}

bool frmTerminal::eventFilter(QObject* watched, QEvent* event) {
    if (watched == line_ && event->type() == QEvent::KeyPress && !line_->completer()->popup()->isVisible()) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Up || key == Qt::Key_Down) {
            Recall(key == Qt::Key_Up ? -1 : 1);
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

void frmTerminal::Recall(int step) {
    const int count = static_cast<int>(history_.size());
    recalled_ = std::clamp(recalled_ + step, 0, count);
    line_->setText(recalled_ < count ? history_[recalled_] : QString());
}

void frmTerminal::SendTyped() {
    const QString typed = line_->text();
    if (works_ || typed.trimmed().isEmpty()) return;
    history_.removeAll(typed);
    history_ += typed;
    if (history_.size() > kMostHistory) history_.removeFirst();
    recalled_ = static_cast<int>(history_.size());
    line_->clear();
    SendText(ValueBytes(typed, {}), false);
    line_->setFocus();
}

void frmTerminal::SendText(const std::string& text, bool halt) {
    if (works_) return;
    desk_.NoticeLoss();
    if (desk_.Busy()) return Note(Text(say::kBusy), true);
    if (!desk_.Connected()) return Note(Text(kNotConnected), true);
    const LinkDesk::Use use(desk_);
    app_.cancel = false;
    SetSending(true);
    const auto end = qScopeGuard([this] { SetSending(false); });
    try {
        ShowEnd(sending_.Run(text, kAnswerMs, halt));
    } catch (const Error& error) {
        app_.Record(error);
        Note(Shown(error.Description()), true);
    }
}

void frmTerminal::ShowEnd(const CSendFile::Report& report) {
    using End = CSendFile::Report::End;
    QString words;
    if (report.total > 1) {
        words = Say(app_.model.texts, kFileEnd, QString::number(report.answers.size()),
                    QString::number(report.total), QString::number(report.Failed()));
    }
    const int why = report.end == End::Lost      ? kFileLost
                    : report.end == End::Aborted ? kFileAborted
                    : report.end == End::Halted  ? kFileHalted
                                                 : 0;
    if (why != 0) words += QLatin1Char(' ') + Text(why);
    Note(words.trimmed(), report.end != End::Complete || (report.total > 1 && report.Failed() > 0));
}

void frmTerminal::SendChosenFile() {
    const QString path = dialogs_.AskOpenFile(this, {PlainCaption(Text(kSendFile)),
                                                     Shown(app_.settings.LastFolder),
                                                     {Text(say::kAllFiles) + QStringLiteral(" (*.*)")},
                                                     {}});
    if (path.isEmpty()) return;
    try {
        SendText(app_.files.Read(Utf8(QDir::toNativeSeparators(path))), halt_->isChecked());
    } catch (const std::system_error& failure) {
        Note(Shown(Reason(failure)), true);
    }
}

void frmTerminal::SaveLog() {
    const ResourceTexts& texts = app_.model.texts;
    const QString path = dialogs_.AskSaveFile(this, {Text(kSaveLogTitle),
                                                     Shown(app_.settings.LastFolder),
                                                     {Text(say::kTextFiles) + QStringLiteral(" (*.txt)")},
                                                     QStringLiteral("txt")});
    if (path.isEmpty() || !AskReplace(dialogs_, texts, this, path)) return;
    const QString native = QDir::toNativeSeparators(path);
    try {
        app_.files.Replace(Utf8(native), Utf8(log_->Text()));
        Note(Say(texts, say::kWritten, native), false);
    } catch (const std::system_error& failure) {
        Note(Shown(Reason(failure)), true);
    }
}

void frmTerminal::PressMacro(std::size_t number) {
    const MacroKey& key = macros_[number];
    if (key.text.empty()) return EditMacro(number);
    if (key.sendsEnter) return SendText(key.text, false);
    line_->setText(ShownValue(key.text.substr(0, key.text.find('\n'))));
    line_->setFocus();
}

void frmTerminal::EditMacro(std::size_t number) {
    auto* dialog = new frmMacro(app_.model.texts, KeyName(number), macros_[number], this);
    connect(dialog, &QDialog::accepted, this, [this, dialog, number] {
        macros_[number] = dialog->Key();
        ShowMacros();
        try {
            SaveMacroKeys(app_.files, macroFile_, macros_);
        } catch (const std::system_error& failure) {
            Note(Say(app_.model.texts, kMacrosUnsaved, Shown(Reason(failure))), true);
        }
    });
    dialog->open();
}

void frmTerminal::ShowMacros() {
    const ResourceTexts& texts = app_.model.texts;
    for (std::size_t i = 0; i < keys_.size(); ++i) {
        const MacroKey& key = macros_[i];
        const bool isFree = key.text.empty();
        QString caption = ToShown(key.caption);
        keys_[i]->setText(isFree ? Say(texts, kMacroFree, KeyName(i))
                                 : Say(texts, kMacroCaption, KeyName(i),
                                       caption.replace(QLatin1Char('&'), QStringLiteral("&&"))));
        keys_[i]->setToolTip(isFree ? Text(kMacroFreeTip) : Say(texts, kMacroTip, ShownValue(key.text)));
    }
}

// While it sends, leaving means ending that; the dialog is left by a second one.
void frmTerminal::reject() {
    if (works_) return sending_.Abort();
    QDialog::reject();
}

void frmTerminal::SetSending(bool on) {
    works_ = on;
    if (!on) progress_->hide();
    cancel_->setVisible(on);
    send_->setEnabled(!on);
    file_->setEnabled(!on);
    for (QPushButton* key : keys_) key->setEnabled(!on);
}

void frmTerminal::Line(const std::string& line, std::size_t number, std::size_t total) {
    log_->Append(line, true);
    if (total < 2) return;
    progress_->show();
    note_->show();
    progress_->setRange(0, static_cast<int>(total));
    progress_->setValue(static_cast<int>(number));
    Note(Say(app_.model.texts, kSendingLine, QString::number(number), QString::number(total)), false);
}

void frmTerminal::Answered(const CSendFile::Answer& answer) {
    log_->Append(answer.text.empty() ? Utf8(Text(kNoAnswer)) : answer.text, false);
}

}  // namespace calyx::ui
