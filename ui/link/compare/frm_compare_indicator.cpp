#include "ui/link/compare/frm_compare_indicator.h"

#include <QComboBox>
#include <QDateTime>
#include <QDir>
#include <QLineEdit>
#include <QLocale>
#include <QMenu>
#include <QProgressBar>
#include <QScopeGuard>
#include <system_error>

#include "comm/link_texts.h"
#include "model/language/reason.h"
#include "platform/paths.h"
#include "ui/dialogs/screen_fit.h"
#include "ui/link/compare/compare_texts.h"
#include "ui/link/compare/ctl_send_lines.h"
#include "ui/link/dialog_parts.h"
#include "ui/link/elapsed.h"
#include "ui/texts.h"
#include "ui/theme/theme.h"

namespace calyx::ui {

using namespace compare_text;

namespace {

// The folders' texts end with the separator.
std::string BackupFolder(const AppContext& app) {
    return FolderText(app.folders.userData + "backups");
}

}  // namespace

frmCompareIndicator::frmCompareIndicator(AppContext& app, DocumentSession& session, LinkDesk& desk,
                                         Dialogs& dialogs, const QString& documentName, QWidget* parent)
    : QDialog(parent),
      app_(app),
      session_(session),
      desk_(desk),
      dialogs_(dialogs),
      documentName_(documentName),
      lines_(new ctlSendLines(session.Document())),
      note_(MakeNote("lblCount")),
      backup_(MakeNote("lblBackup")),
      current_(new QLabel),
      parts_(MakeButton(app.model.texts, kParts, "cmdParts")),
      show_(new QComboBox),
      filter_(new QLineEdit),
      progress_(new QProgressBar),
      elapsed_(new ElapsedLabel(app.model.texts)),
      send_(MakeButton(app.model.texts, kSend, "cmdSend")),
      pause_(MakeButton(app.model.texts, kPause, "cmdPause")),
      abort_(MakeButton(app.model.texts, kAbort, "cmdAbort")),
      restore_(MakeButton(app.model.texts, kRestore, "cmdRestore")),
      readAgain_(MakeButton(app.model.texts, kReadAgain, "cmdReadAgain")),
      close_(MakeButton(app.model.texts, say::kCloseMnemonic, "cmdClose")),
      mask_(static_cast<unsigned>(app.settings.DownloadOptions) & ~download_option::chkCODFile) {
    setObjectName(QStringLiteral("frmCompareIndicator"));
    setWindowTitle(Text(kTitle));
    setAttribute(Qt::WA_DeleteOnClose);
    IDownloadEvents& download = *this;
    IUploadEvents& upload = *this;
    sending_ = std::make_unique<CSafeSend>(desk.Link(), app.model, app.cancel, download, upload,
                                           CSafeSend::Places{BackupFolder(app), JournalFile(app)});
    MakeControls();
    QVBoxLayout* all = MakeColumn(*this);
    all->setContentsMargins(metrics::kGroups, metrics::kGroups, metrics::kGroups, metrics::kGroups);
    all->setSpacing(metrics::kRelated);
    all->addWidget(note_);
    all->addWidget(MakeHead());
    all->addWidget(lines_, 1);
    all->addWidget(MakeProgress());
    all->addWidget(backup_);
    all->addLayout(MakeButtons());
    constexpr QSize kUsual(980, 620);
    resize(FitScreen(*this, kUsual));
    SetState(State::Idle);
}

frmCompareIndicator::~frmCompareIndicator() = default;

QString frmCompareIndicator::Text(int number) const {
    return Say(app_.model.texts, number);
}

void frmCompareIndicator::Note(const QString& words, bool problem) {
    ShowNote(*note_, words, problem);
}

void frmCompareIndicator::MakeControls() {
    backup_->setForegroundRole(role::kQuietText);
    backup_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    parts_->setToolTip(Text(kPartsTip));
    MakeParts();
    show_->setObjectName(QStringLiteral("cboShow"));
    show_->addItems({Text(kShowAll), Text(kShowSent), Text(kShowNot)});
    filter_->setObjectName(QStringLiteral("txtFilter"));
    filter_->setPlaceholderText(Text(kFilter));
    filter_->setAccessibleName(Text(kFilter));
    filter_->setClearButtonEnabled(true);
    current_->setFont(FixedFont());
    current_->setTextFormat(Qt::PlainText);
    current_->setForegroundRole(role::kQuietText);
    current_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    current_->setAccessibleName(Text(say::kCurrentLine));
    progress_->setTextVisible(false);
    progress_->setAccessibleName(Text(say::kProgressName));
    restore_->setToolTip(Text(kRestoreTip));
    connect(show_, &QComboBox::currentIndexChanged, this, &frmCompareIndicator::ShowFilter);
    connect(filter_, &QLineEdit::textChanged, this, &frmCompareIndicator::ShowFilter);
    connect(lines_, &ctlSendLines::TicksChanged, this, &frmCompareIndicator::ShowButtons);
    connect(lines_, &ctlSendLines::Chosen, this, [this](const QString& key) {
        if (state_ != State::Idle) return;
        emit Chosen(key);
        accept();
    });
    connect(send_, &QPushButton::clicked, this, &frmCompareIndicator::Send);
    connect(pause_, &QPushButton::clicked, this, &frmCompareIndicator::Pause);
    connect(abort_, &QPushButton::clicked, this, &frmCompareIndicator::Abort);
    connect(restore_, &QPushButton::clicked, this, &frmCompareIndicator::Restore);
    connect(readAgain_, &QPushButton::clicked, this, &frmCompareIndicator::Read);
    connect(close_, &QPushButton::clicked, this, &frmCompareIndicator::reject);
}

void frmCompareIndicator::MakeParts() {
    using namespace download_option;
    auto* menu = new QMenu(parts_);
    const std::pair<unsigned, int> parts[] = {{chkBase, say::kOptBase},
                                              {chkCalibration, say::kOptCalibration},
                                              {chkSetpoints, say::kOptSetpoints},
                                              {chkWidgets, say::kOptWidgets},
                                              {chkSchemas, say::kOptSchemas}};
    for (const auto& [bit, caption] : parts) {
        QAction* part = menu->addAction(Text(caption));
        part->setCheckable(true);
        part->setChecked((mask_ & bit) != 0);
        connect(part, &QAction::toggled, this, [this, bit = bit](bool on) {
            mask_ = on ? mask_ | bit : mask_ & ~bit;
            if (plan_) MakePlan();
        });
    }
    parts_->setMenu(menu);
}

QWidget* frmCompareIndicator::MakeHead() {
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(metrics::kRelated);
    auto* label = new QLabel(Text(kShow));
    label->setBuddy(show_);
    layout->addWidget(label);
    layout->addWidget(show_);
    layout->addWidget(filter_, 1);
    layout->addWidget(parts_);
    return row;
}

QWidget* frmCompareIndicator::MakeProgress() {
    auto* area = new QWidget;
    auto* layout = new QVBoxLayout(area);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(metrics::kHalf);
    auto* facts = new QHBoxLayout;
    facts->setSpacing(metrics::kGroups);
    facts->addWidget(current_, 1);
    facts->addWidget(elapsed_);
    layout->addWidget(progress_);
    layout->addLayout(facts);
    KeepRoom(*progress_);
    return area;
}

QLayout* frmCompareIndicator::MakeButtons() {
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(metrics::kRelated);
    buttons->addWidget(readAgain_);
    buttons->addWidget(restore_);
    buttons->addStretch();
    buttons->addWidget(send_);
    buttons->addWidget(pause_);
    buttons->addWidget(abort_);
    buttons->addWidget(close_);
    return buttons;
}

DownloadOptions frmCompareIndicator::Options() const {
    DownloadOptions options;
    options.mask = mask_;
    options.haltOnError = app_.settings.HaltOnDownloadError;
    return options;
}

bool frmCompareIndicator::MakeBackupFolder() {
    const std::string folder = BackupFolder(app_);
    try {
        MakeFolder(folder);
        return true;
    } catch (const std::system_error& failure) {
        Note(Say(app_.model.texts, kBackupFolder, QDir::toNativeSeparators(Shown(folder)),
                 Shown(Reason(failure))),
             true);
        return false;
    }
}

void frmCompareIndicator::Fail(const Error& error) {
    app_.Record(error);
    Note(Shown(error.Description()), true);
}

void frmCompareIndicator::Read() {
    if (state_ != State::Idle || !MakeBackupFolder()) return;
    const LinkDesk::Use use(desk_);
    app_.cancel = false;
    cancelled_ = false;
    plan_.reset();
    Note(Text(kReading), false);
    SetState(State::Reading);
    const auto end = qScopeGuard([this] { SetState(State::Idle); });
    try {
        const QString stamp = QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd HHmmss"));
        if (sending_->Prepare(Utf8(stamp)) == nullptr) return Note(Text(kReadCancelled), false);
        sentOnce_ = lost_ = false;
        backup_->setText(Say(app_.model.texts, kBackup, QDir::toNativeSeparators(Shown(sending_->Backup()))));
        MakePlan();
    } catch (const Error& error) {
        Fail(error);
    }
}

void frmCompareIndicator::MakePlan() {
    plan_.emplace(sending_->Preview(session_.Document(), Options()));
    lines_->ShowPlan(*plan_);
    ShowFilter();
    ShowCounts();
    ShowButtons();
    emit Compared(lines_->Differing());
}

void frmCompareIndicator::ShowCounts() {
    const auto toSend = plan_->Count(PlannedLine::Fate::Send);
    if (toSend == 0 && lines_->Differing().empty()) return Note(Text(say::kCompareSame), false);
    Note(Say(app_.model.texts, kDiffer, QLocale().toString(static_cast<qulonglong>(toSend)),
             QLocale().toString(lines_->NotGoing())),
         false);
}

void frmCompareIndicator::ShowFilter() {
    lines_->SetFilter(static_cast<ctlSendLines::Filter>(show_->currentIndex()), filter_->text().trimmed());
}

void frmCompareIndicator::Send() {
    if (lost_) return Resume();
    if (!plan_ || state_ != State::Idle) return;
    lines_->TakeTicks(*plan_);
    if (lines_->Ticked() == 0) return Note(Text(kNothingTicked), true);
    if (sending_->Pending() && dialogs_.Ask(this, {Tone::Warning,
                                                   Text(kReplacesTitle),
                                                   Text(kReplaces),
                                                   {},
                                                   {Text(kReplacesGo), Text(say::kCancel)},
                                                   1}) != 0)
        return;
    lines_->BeginRun();
    Run(false, [this] { return sending_->Send(*plan_, Options(), Utf8(documentName_)); });
}

void frmCompareIndicator::Resume() {
    Run(false, [this] {
        if (!desk_.Connected()) desk_.Reopen();
        return sending_->Resume();
    });
}

void frmCompareIndicator::Restore() {
    if (state_ != State::Idle) return;
    Run(true, [this] {
        if (!desk_.Connected()) desk_.Reopen();
        return sending_->Restore();
    });
}

void frmCompareIndicator::ResumePending() {
    const auto record = sending_->Pending();
    if (!record) return;
    lines_->ShowRecord(*record);
    backup_->setText(Say(app_.model.texts, kBackup, QDir::toNativeSeparators(Shown(record->backup))));
    Resume();
}

void frmCompareIndicator::RestorePending() {
    const auto record = sending_->Pending();
    if (!record) return;
    lines_->ShowRecord(*record);
    backup_->setText(Say(app_.model.texts, kBackup, QDir::toNativeSeparators(Shown(record->backup))));
    Run(true, [this] { return sending_->RestorePending(); });
}

template <class Work>
void frmCompareIndicator::Run(bool restores, Work&& work) {
    const LinkDesk::Use use(desk_);
    app_.cancel = false;
    cancelled_ = false;
    lines_->SetTickable(false);
    const bool wasLost = lost_;
    SetState(State::Sending);
    const auto end = qScopeGuard([this] { SetState(State::Idle); });
    try {
        const SafeSendReport report = work();
        sentOnce_ = true;
        lost_ = report.Paused() && !restores;
        ShowEnd(report, restores);
    } catch (const Error& error) {
        lost_ = wasLost;
        Fail(error);
    }
}

// A success is said only of what was read back.
void frmCompareIndicator::ShowEnd(const SafeSendReport& report, bool restores) {
    const ResourceTexts& texts = app_.model.texts;
    QString words = Shown(report.InWords(texts));
    if (restores) {
        if (report.Success()) {
            lines_->ShowRestored();
            words = Text(kRestored) + QLatin1Char(' ') + Shown(report.counts.InWords(texts));
        }
        if (!report.cannotGoBack.empty()) {
            QStringList keys;
            for (const std::string& key : report.cannotGoBack) keys += ShownValue(key);
            words += QLatin1Char('\n') + Say(texts, kCannotGoBack, keys.join(QStringLiteral(", ")));
        }
    } else {
        lines_->ShowReport(report);
    }
    Note(words, !report.Success());
    std::vector<std::string> accepted;
    for (const SafeSendReport::Line& line : report.lines) {
        if (line.green) accepted.push_back(line.line);
    }
    emit Ended(report.download, accepted);
    emit Compared(lines_->Differing());
}

void frmCompareIndicator::Pause() {
    if (state_ == State::Sending) {
        SetState(State::Paused);
        Note(Text(kPaused), false);
    } else if (state_ == State::Paused) {
        SetState(State::Sending);
        Note(QString(), false);
    }
}

void frmCompareIndicator::Abort() {
    cancelled_ = true;
    if (state_ == State::Paused) SetState(State::Sending);
    sending_->Abort();
}

// While it works, leaving means ending that; the dialog is left by a second one.
void frmCompareIndicator::reject() {
    if (state_ != State::Idle) {
        desk_.GiveUpOpening();
        return Abort();
    }
    QDialog::reject();
}

void frmCompareIndicator::SetState(State state) {
    state_ = state;
    const bool works = state != State::Idle;
    const bool counts = state == State::Sending || state == State::Paused;
    progress_->setVisible(works);
    if (state == State::Reading) progress_->setRange(0, 0);
    if (works && !counts) elapsed_->Start();
    if (state == State::Sending && current_->text().isEmpty()) {
        progress_->setRange(0, 0);
        elapsed_->Start();
    }
    if (!works) {
        elapsed_->Stop();
        current_->clear();
    }
    ShowButtons();
}

void frmCompareIndicator::ShowButtons() {
    const bool idle = state_ == State::Idle;
    const bool runs = state_ == State::Sending || state_ == State::Paused;
    send_->setText(lost_ ? Text(kResume)
                         : Say(app_.model.texts, kSend, QLocale().toString(lines_->Ticked())));
    send_->setVisible(idle && (lost_ || (plan_ && !sentOnce_ && lines_->Ticked() + lines_->Lines() > 0)));
    pause_->setText(Text(state_ == State::Paused ? kGoOn : kPause));
    pause_->setVisible(runs);
    abort_->setVisible(!idle);
    restore_->setVisible(idle && sentOnce_);
    readAgain_->setVisible(idle);
    close_->setVisible(idle);
    parts_->setEnabled(idle && !sentOnce_ && !lost_);
    QPushButton* first = runs || !idle ? abort_ : send_->isVisibleTo(this) ? send_ : close_;
    first->setDefault(true);
}

void frmCompareIndicator::Status(const std::string& text) {
    Note(Shown(text), false);
}

void frmCompareIndicator::Line(const std::string& line, int number, int total) {
    progress_->setRange(0, total);
    progress_->setValue(number);
    current_->setText(ShownValue(line));
    // Between two lines the wire is at rest, so that nothing times out meanwhile.
    while (state_ == State::Paused) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

void frmCompareIndicator::Done(LineFate fate) {
    lines_->Mark(fate);
}

void frmCompareIndicator::Notice(const std::string& title, const std::string& text) {
    // Why a run ended stands in the window afterwards, with what is to be done here.
    if (title == app_.model.texts.Text(link_text::kSectionFailedTitle)) return;
    Tell(dialogs_, app_.model.texts, this, Tone::Information, title.empty() ? windowTitle() : Shown(title),
         Shown(text));
}

void frmCompareIndicator::Received(std::size_t characters) {
    const int words = state_ == State::Reading ? kReceived : kReadingBack;
    Note(Say(app_.model.texts, words, QLocale().toString(static_cast<qulonglong>(characters))), false);
}

}  // namespace calyx::ui
