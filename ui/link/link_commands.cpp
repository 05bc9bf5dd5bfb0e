#include "ui/link/link_commands.h"

#include <QDir>
#include <QTimer>

#include "comm/link_texts.h"
#include "comm/send_journal.h"
#include "model/language/text.h"
#include "ui/link/calibration/frm_calibration_wizard.h"
#include "ui/link/calibration/wizard_texts.h"
#include "ui/link/compare/compare_texts.h"
#include "ui/link/compare/frm_compare_indicator.h"
#include "ui/link/differences.h"
#include "ui/link/frm_connect.h"
#include "ui/link/frm_download.h"
#include "ui/link/frm_upload.h"
#include "ui/link/link_ui_texts.h"
#include "ui/link/terminal/frm_terminal.h"
#include "ui/link/tools/frm_stream_simulator.h"
#include "ui/link/tools/frm_training.h"
#include "ui/text.h"
#include "ui/texts.h"

namespace calyx::ui {

LinkCommands::LinkCommands(AppContext& app, DocumentSession& session, FileCommands& files, Dialogs& dialogs,
                           LinkDesk& desk, QWidget* window)
    : app_(app), session_(session), files_(files), dialogs_(dialogs), desk_(desk), window_(window) {
    connect(&session_, &DocumentSession::Replaced, this, &LinkCommands::ForgetSent);
    connect(&desk_, &LinkDesk::Opened, this, &LinkCommands::ForgetSent);
    connect(&desk_, &LinkDesk::DeviceChanged, this,
            [this] { session_.TakeLiveCards(desk_.Connected() ? desk_.LiveCards() : std::string()); });
    QTimer::singleShot(0, this, &LinkCommands::OfferPending);  // once the window is there
}

void LinkCommands::ForgetSent() {
    sentAt_ = {};
    sent_.clear();
    differing_.clear();
}

QString LinkCommands::Text(int number) const {
    return Say(app_.model.texts, number);
}

bool LinkCommands::Free() {
    desk_.NoticeLoss();
    if (!desk_.Busy()) return true;
    Tell(dialogs_, app_.model.texts, window_, Tone::Information, Text(say::kBusyTitle), Text(say::kBusy));
    return false;
}

void LinkCommands::Fail(const Error& error) {
    app_.Record(error);
    TellError(dialogs_, app_.model.texts, window_, Text(say::kLinkFailedTitle), error);
}

void LinkCommands::Connect() {
    if (!Free()) return;
    if (!desk_.Connected()) return OpenConnectDialog({});
    const int answer = dialogs_.Ask(window_, {Tone::Question,
                                              Text(say::kConnectTitle),
                                              Say(app_.model.texts, say::kConnectedAlready, desk_.Where()),
                                              {},
                                              {Text(say::kDisconnectVerb), Text(say::kCancel)}});
    if (answer != 0) return;
    Disconnect();
    OpenConnectDialog({});
}

void LinkCommands::OpenConnectDialog(std::function<void()> next) {
    auto* dialog = new frmConnect(app_, desk_, window_);
    const auto connected = [this, next = std::move(next)] {
        AfterConnect();
        next ? next() : OfferPending();
    };
    connect(dialog, &QDialog::accepted, this, connected, Qt::QueuedConnection);
    dialog->open();
}

// What is to be known of an indicator before anything is sent to it.
void LinkCommands::AfterConnect() {
    const ResourceTexts& texts = app_.model.texts;
    const TargetVersion& target = app_.model.target;
    if (VersionBit(target.prefix) == kUnknownVersion && !target.cb2) {
        Tell(dialogs_, texts, window_, Tone::Warning, Text(link_ui_text::kUnknownVersionTitle),
             Say(texts, link_ui_text::kUnknownVersion, desk_.Identification()));
    }
    QStringList differing;
    for (const BrokenRule& rule : session_.Document().ValidateLiveHardware("HARDWARE=" + desk_.LiveCards()))
        differing += Shown(rule.text);
    if (desk_.LiveCards().empty() || differing.isEmpty()) return;
    for (const QString& finding : differing) emit Logged(finding);
    const int answer =
        dialogs_.Ask(window_, {Tone::Warning,
                               Text(link_ui_text::kCardsDifferTitle),
                               Say(texts, link_ui_text::kCardsDiffer, differing.join(QLatin1Char('\n'))),
                               {},
                               {Text(link_ui_text::kShowSlots), Text(say::kNotNow)}});
    if (answer == 0) emit Chosen(QStringLiteral("HARDWARE"));
}

void LinkCommands::ConnectSimulated() {
    if (Free() && OpenSimulated()) OfferPending();
}

bool LinkCommands::OpenSimulated() {
    try {
        if (desk_.Connected()) desk_.Close();
        desk_.OpenSimulated();
    } catch (const Error& error) {
        Fail(error);
        return false;
    }
    AfterConnect();
    return true;
}

// What an earlier run of the program, or a lost link, has left open.
void LinkCommands::OfferPending() {
    if (!desk_.Busy()) OfferPendingCalibration([this] { OfferPendingSend([] {}); });
}

void LinkCommands::Disconnect() {
    if (!Free()) return;
    if (!desk_.Connected()) {
        return Tell(dialogs_, app_.model.texts, window_, Tone::Information, Text(say::kNeedConnectionTitle),
                    Text(say::kNotConnectedAnyway));
    }
    try {
        desk_.Close();
    } catch (const Error& error) {
        Fail(error);
    }
}

void LinkCommands::WithConnection(const std::function<void()>& next) {
    if (!Free()) return;
    if (desk_.Connected()) return next();
    const int answer = dialogs_.Ask(
        window_, {Tone::Question,
                  Text(say::kNeedConnectionTitle),
                  Text(say::kNeedConnection),
                  {},
                  {Text(say::kConnectVerb), PlainCaption(Text(say::kSimulated)), Text(say::kCancel)}});
    if (answer == 0) OpenConnectDialog(next);
    if (answer == 1 && OpenSimulated()) next();
}

void LinkCommands::Send() {
    if (files_.FinishInput()) WithConnection([this] { SendNow(); });
}

void LinkCommands::SendNow() {
    OfferPendingSend([this] {
        auto* dialog = new frmDownload(app_, session_, desk_, dialogs_, files_.Name(), window_);
        connect(dialog, &frmDownload::Ended, this,
                [this, dialog](const DownloadReport& report) { EndOfDownload(report, dialog->Accepted()); });
        dialog->open();
    });
}

void LinkCommands::EndOfDownload(const DownloadReport& report, const std::vector<std::string>& accepted) {
    for (const FailedLine& failed : report.failed) {
        emit Logged(Say(app_.model.texts, say::kLogRefused, ShownValue(failed.line)));
    }
    emit Logged(Say(app_.model.texts, say::kLogDownload, QString::number(report.accepted),
                    QString::number(report.total), QString::number(report.failed.size())));
    if (!report.reason.empty())
        emit Logged(Say(app_.model.texts, link_ui_text::kLogReason, Shown(report.reason)));
    std::set<std::string> parameters;  // lines of a program file look alike and are none
    for (const KeyValue& line : SentLines(session_.Document(), app_.model.target.Gated())) {
        parameters.insert(Upper(line.key));
    }
    for (const std::string& line : accepted) {
        const std::string key = Upper(line.substr(0, line.find('=')));
        if (!parameters.contains(key)) continue;
        sent_[key] = line.substr(key.size() + 1);
        differing_.erase(key);
        sentAt_ = QTime::currentTime();
    }
    emit Compared(differing_);
    emit SentChanged();
}

std::optional<LinkCommands::Sent> LinkCommands::LastSent() const {
    if (!sentAt_.isValid()) return std::nullopt;
    Sent sent{sentAt_};
    auto gone = sent_;
    for (const KeyValue& line : SentLines(session_.Document(), app_.model.target.Gated())) {
        const std::string key = Upper(line.key);
        const auto before = sent_.find(key);
        if (before == sent_.end()) {
            ++sent.notSent;
        } else if (before->second != line.value) {
            ++sent.changesSince;
        }
        gone.erase(key);
    }
    sent.changesSince += gone.size();
    return sent;
}

void LinkCommands::Read() {
    if (Free() && files_.MayLeave()) WithConnection([this] { ReadNow(); });
}

void LinkCommands::ReadNow() {
    const ResourceTexts& texts = app_.model.texts;
    try {
        const LinkDesk::Use use(desk_);
        if (desk_.Link().CheckForStreaming()) {
            return Tell(dialogs_, texts, window_, Tone::Information, Text(say::kNothingRead),
                        Text(link_text::kStreaming));
        }
    } catch (const Error& error) {
        return Fail(error);
    }
    const QString path = dialogs_.AskSaveFile(
        window_,
        {Text(say::kUploadFile), files_.Folder(), files_.ConfigurationFilters(), QStringLiteral("mrn")});
    if (path.isEmpty() || !AskReplace(dialogs_, texts, window_, path)) return;
    const auto before = session_.Document().Lines();
    const auto report = FetchDump();
    if (!report) return;
    emit Logged(Say(texts, say::kLogRead, QString::number(report->text.size())));
    try {
        WriteUpload(app_.files, texts, Utf8(QDir::toNativeSeparators(path)), report->text);
    } catch (const Error& error) {
        return Fail(error);
    }
    // What was discarded before is not asked for again; what was edited meanwhile is.
    if (before == session_.Document().Lines() || files_.MayLeave()) OpenRead(path);
}

// The reply goes into the file as it came. It has no checksum, so the file is opened without the checks;
// what could not be kept stands in the read report.
void LinkCommands::OpenRead(const QString& path) {
    if (!files_.OpenPath(path, true)) return;
    const int answer = dialogs_.Ask(window_, {Tone::Question,
                                              Text(say::kCheckTitle),
                                              Text(say::kCheckAfterUpload),
                                              {},
                                              {Text(say::kCheckNow), Text(say::kNotNow)}});
    if (answer == 0) emit CheckWanted();
}

// Nothing: cancelled or failed, and said so.
std::optional<UploadReport> LinkCommands::FetchDump() {
    const ResourceTexts& texts = app_.model.texts;
    const LinkDesk::Use use(desk_);
    app_.cancel = false;
    frmUpload progress(texts, window_);
    progress.show();
    progress.StartElapsed();
    UploadReport report;
    try {
        report = Upload(desk_.Link(), app_.model, progress);
        progress.Status(texts.Text(say::kOpening));
        progress.Finish();
    } catch (const Error& error) {
        progress.Finish();
        Fail(error);
        return std::nullopt;
    }
    if (!report.notice.empty()) {
        Tell(dialogs_, texts, window_, Tone::Information, Text(say::kNothingRead), Shown(report.notice));
    }
    if (report.end != UploadReport::End::Complete) return std::nullopt;
    return report;
}

void LinkCommands::Compare() {
    if (files_.FinishInput()) WithConnection([this] { CompareNow(); });
}

// A run that was broken off comes first: its backup says what was there before.
void LinkCommands::CompareNow() {
    OfferPendingSend([this] { OpenCompare()->Read(); });
}

frmCompareIndicator* LinkCommands::OpenCompare() {
    auto* dialog = new frmCompareIndicator(app_, session_, desk_, dialogs_, files_.Name(), window_);
    connect(dialog, &frmCompareIndicator::Chosen, this, &LinkCommands::Chosen);
    connect(dialog, &frmCompareIndicator::Ended, this, &LinkCommands::EndOfDownload);
    connect(dialog, &frmCompareIndicator::Compared, this, [this](const std::set<std::string>& differing) {
        differing_ = differing;
        emit Compared(differing_);
    });
    dialog->open();
    return dialog;
}

void LinkCommands::OfferPendingSend(const std::function<void()>& otherwise) {
    using namespace compare_text;
    const ResourceTexts& texts = app_.model.texts;
    SendJournal journal(*app_.model.files, texts, frmCompareIndicator::JournalFile(app_));
    const auto record = journal.Find();
    if (!record) return otherwise();
    const bool canRestore = !record->backup.empty();
    const int words = record->restores ? kPendingRestores : canRestore ? kPending : kPendingPlain;
    QStringList ways{Text(kPendingResume), Text(kPendingForget), Text(kPendingLater)};
    if (canRestore) ways.insert(1, Text(kPendingRestore));
    const QString chosen = ways.at(dialogs_.Ask(
        window_, {Tone::Warning,
                  Text(kPendingTitle),
                  Say(texts, words, Shown(record->document), Shown(record->where),
                      QString::number(record->Left()), QString::number(CountLines(record->steps))),
                  {},
                  ways}));
    if (chosen == Text(kPendingLater)) return otherwise();
    if (chosen == Text(kPendingForget)) {
        journal.Remove();
        return otherwise();
    }
    const bool restore = chosen == Text(kPendingRestore);
    WithConnection([this, restore] { GoOnWithPending(restore); });
}

// A simulated indicator has another port every time.
void LinkCommands::GoOnWithPending(bool restore) {
    using namespace compare_text;
    const SendJournal journal(*app_.model.files, app_.model.texts, frmCompareIndicator::JournalFile(app_));
    const auto record = journal.Find();
    if (!record) return;
    const std::string where = desk_.Link().Where();
    if (record->where != where && !desk_.Simulated() &&
        dialogs_.Ask(window_, {Tone::Warning,
                               Text(kElsewhereTitle),
                               Say(app_.model.texts, kElsewhere, Shown(record->where), Shown(where)),
                               {},
                               {Text(kElsewhereGo), Text(say::kCancel)},
                               1}) != 0)
        return;
    frmCompareIndicator* dialog = OpenCompare();
    restore ? dialog->RestorePending() : dialog->ResumePending();
}

void LinkCommands::Calibrate() {
    if (!files_.FinishInput()) return;
    WithConnection([this] {
        OfferPendingCalibration([this] {
            (new frmCalibrationWizard(app_, session_, desk_, dialogs_, files_.Name(), window_))->open();
        });
    });
}

void LinkCommands::OfferPendingCalibration(const std::function<void()>& otherwise) {
    using namespace wizard_text;
    const ResourceTexts& texts = app_.model.texts;
    CalibrationJournal journal(*app_.model.files, texts, frmCalibrationWizard::JournalFile(app_));
    const auto record = journal.Find();
    if (!record) return otherwise();
    const int answer = dialogs_.Ask(
        window_, {Tone::Warning,
                  Text(wizard_text::kPendingTitle),
                  Say(texts, wizard_text::kPending, QString::number(record->scale), Shown(record->where)),
                  {},
                  {Text(kRestore), Text(wizard_text::kForget), Text(say::kNotNow)}});
    if (answer == 2) return otherwise();
    if (answer == 1) {
        journal.Remove();
        return otherwise();
    }
    WithConnection([this] {
        auto* dialog = new frmCalibrationWizard(app_, session_, desk_, dialogs_, files_.Name(), window_);
        dialog->open();
        dialog->RestorePending();
    });
}

// One is enough: it stays open beside the window.
void LinkCommands::Terminal() {
    const auto show = [this] {
        auto* terminal = window_->findChild<frmTerminal*>();
        if (terminal == nullptr) terminal = new frmTerminal(app_, session_, desk_, dialogs_, window_);
        terminal->show();
        terminal->raise();
        terminal->activateWindow();
    };
    desk_.Connected() ? show() : WithConnection(show);
}

void LinkCommands::SimulateStream() {
    auto* dialog = window_->findChild<frmStreamSimulator*>();
    if (dialog == nullptr) dialog = new frmStreamSimulator(app_, session_, window_);
    dialog->show();
    dialog->raise();
    dialog->activateWindow();
}

void LinkCommands::Training() {
    (new frmTraining(app_, desk_, window_))->open();
}

}  // namespace calyx::ui
