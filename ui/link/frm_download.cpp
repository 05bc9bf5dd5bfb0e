#include "ui/link/frm_download.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QScopeGuard>
#include <algorithm>
#include <utility>

#include "comm/link_texts.h"
#include "ui/link/compare/compare_texts.h"
#include "ui/link/compare/frm_compare_indicator.h"
#include "ui/link/elapsed.h"
#include "ui/link/frm_download_errors.h"
#include "ui/text.h"
#include "ui/texts.h"
#include "ui/theme/metrics.h"
#include "ui/theme/theme.h"

namespace calyx::ui {

namespace {

constexpr int kWidth = 520;
constexpr int kShowEvery = 40;  // ms between two lines shown; an indicator may take hundreds a second

bool HasLines(const CIndicator& document, SendStep step) {
    return !LinesOf(document, step, Target::Everything()).empty();
}

}  // namespace

frmDownload::frmDownload(AppContext& app, DocumentSession& session, LinkDesk& desk, Dialogs& dialogs,
                         QString documentName, QWidget* parent)
    : QDialog(parent),
      app_(app),
      session_(session),
      desk_(desk),
      dialogs_(dialogs),
      documentName_(std::move(documentName)),
      journal_(*app.model.files, app.model.texts, frmCompareIndicator::JournalFile(app)),
      events_(journal_, *this),
      download_(desk.Link(), app.cancel, events_),
      txtFilename_(new QLineEdit),
      cmdBrowse_(new QPushButton),
      lblStatus_(new QLabel),
      txtCurrentCommand_(new QLabel),
      lblDownloadErrors_(new QLabel),
      progress_(new QProgressBar),
      elapsed_(new ElapsedLabel(app.model.texts)),
      cmdStart_(new QPushButton),
      cmdAbort_(new QPushButton),
      cmdClose_(new QPushButton) {
    const ResourceTexts& texts = app.model.texts;
    setObjectName(QStringLiteral("frmDownload"));
    setWindowTitle(Say(texts, say::kDownloadTitle));
    setAttribute(Qt::WA_DeleteOnClose);

    auto* what = new QGroupBox(Say(texts, say::kDownloadWhat));
    auto* choices = new QVBoxLayout(what);
    choices->setSpacing(0);
    MakeOptions();
    for (const Option& option : options_) choices->addWidget(option.box);
    choices->addWidget(MakeProgramRow());

    cmdStart_->setText(Say(texts, say::kStart));
    cmdStart_->setObjectName(QStringLiteral("cmdStart"));
    cmdStart_->setDefault(true);
    cmdAbort_->setText(Say(texts, say::kAbort));
    cmdAbort_->setObjectName(QStringLiteral("cmdAbort"));
    cmdAbort_->setAutoDefault(false);
    cmdClose_->setText(Say(texts, say::kCloseMnemonic));
    cmdClose_->setObjectName(QStringLiteral("cmdClose"));
    cmdClose_->setAutoDefault(false);
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(metrics::kRelated);
    buttons->addStretch();
    buttons->addWidget(cmdStart_);
    buttons->addWidget(cmdAbort_);
    buttons->addWidget(cmdClose_);

    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(metrics::kPageEdge, metrics::kPageEdge, metrics::kPageEdge, metrics::kGroups);
    all->setSpacing(metrics::kGroups);
    all->addWidget(what);
    all->addWidget(MakeProgress());
    all->addStretch();
    all->addLayout(buttons);
    setMinimumWidth(kWidth);

    InitDownloadOptions();
    EnableControls();
    Connect();
    const std::string& prefix = app.model.target.prefix;
    lblStatus_->setText(Say(texts, say::kReady, desk.Where(), Shown(prefix.substr(0, prefix.size() - 1))));
}

void frmDownload::MakeOptions() {
    using namespace download_option;
    const CIndicator& document = session_.Document();
    const struct {
        unsigned bit;
        const char* name;
        int caption;
        bool possible;
    } all[] = {
        {chkBase, "chkBase", say::kOptBase, true},
        {chkCalibration, "chkCalibration", say::kOptCalibration, HasLines(document, SendStep::Calibration)},
        {chkSetpoints, "chkSetpoints", say::kOptSetpoints, HasLines(document, SendStep::Setpoints)},
        {chkWidgets, "chkWidgets", say::kOptWidgets, WidgetCount(document) > 0},
        {chkSchemas, "chkSchemas", say::kOptSchemas, HasLines(document, SendStep::Database)},
        {chkCODFile, "chkCODFile", say::kOptProgram, true},
    };
    const ResourceTexts& texts = app_.model.texts;
    for (std::size_t i = 0; i < options_.size(); ++i) {
        const QString caption = Say(texts, all[i].caption);
        auto* box = new QCheckBox(all[i].possible ? caption : Say(texts, say::kNoneOf, caption));
        box->setObjectName(QLatin1String(all[i].name));
        box->setMinimumHeight(metrics::kControlHeight);
        options_[i] = {box, all[i].bit, all[i].possible};
    }
    options_[1].box->setToolTip(Say(texts, say::kCalibrationNote));
}

QWidget* frmDownload::MakeProgramRow() {
    const ResourceTexts& texts = app_.model.texts;
    auto* row = new QWidget;
    auto* label = new QLabel(Say(texts, say::kProgramFile));
    label->setBuddy(txtFilename_);
    txtFilename_->setObjectName(QStringLiteral("txtFilename"));
    cmdBrowse_->setText(Say(texts, say::kBrowse));
    cmdBrowse_->setObjectName(QStringLiteral("cmdBrowse"));
    cmdBrowse_->setAutoDefault(false);
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(metrics::kPageEdge, 0, 0, 0);
    layout->setSpacing(metrics::kRelated);
    layout->addWidget(label);
    layout->addWidget(txtFilename_, 1);
    layout->addWidget(cmdBrowse_);
    return row;
}

QWidget* frmDownload::MakeProgress() {
    const ResourceTexts& texts = app_.model.texts;
    auto* area = new QWidget;
    lblStatus_->setObjectName(QStringLiteral("lblStatus"));
    lblStatus_->setWordWrap(true);
    txtCurrentCommand_->setObjectName(QStringLiteral("txtCurrentCommand"));
    txtCurrentCommand_->setFont(FixedFont());
    txtCurrentCommand_->setTextFormat(Qt::PlainText);
    txtCurrentCommand_->setForegroundRole(role::kQuietText);
    txtCurrentCommand_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    txtCurrentCommand_->setAccessibleName(Say(texts, say::kCurrentLine));
    lblDownloadErrors_->setObjectName(QStringLiteral("lblDownloadErrors"));
    lblDownloadErrors_->setText(Shown(ErrorsText(0)));
    elapsed_->setObjectName(QStringLiteral("lblElapsed"));
    progress_->setObjectName(QStringLiteral("progress"));
    progress_->setAccessibleName(Say(texts, say::kProgressName));
    progress_->setRange(0, 1);
    progress_->setTextVisible(false);
    progress_->setValue(0);
    auto* facts = new QHBoxLayout;
    facts->addWidget(lblDownloadErrors_);
    facts->addStretch();
    facts->addWidget(elapsed_);
    auto* layout = new QVBoxLayout(area);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(metrics::kRelated);
    layout->addWidget(lblStatus_);
    layout->addWidget(progress_);
    layout->addWidget(txtCurrentCommand_);
    layout->addLayout(facts);
    return area;
}

void frmDownload::Connect() {
    connect(cmdStart_, &QPushButton::clicked, this, &frmDownload::cmdStart_Click);
    connect(cmdAbort_, &QPushButton::clicked, this, &frmDownload::cmdAbort_Click);
    connect(cmdBrowse_, &QPushButton::clicked, this, &frmDownload::cmdBrowse_Click);
    connect(cmdClose_, &QPushButton::clicked, this, &frmDownload::reject);
    for (const Option& option : options_) {
        connect(option.box, &QCheckBox::toggled, this, &frmDownload::EnableControls);
    }
}

bool frmDownload::Chosen(unsigned bit) const {
    return (Mask() & bit) != 0;
}

unsigned frmDownload::Mask() const {
    unsigned mask = 0;
    for (const Option& option : options_) {
        if (option.possible && option.box->isChecked()) mask |= option.bit;
    }
    return mask;
}

void frmDownload::InitDownloadOptions() {
    const auto mask = static_cast<unsigned>(app_.settings.DownloadOptions);
    for (const Option& option : options_) option.box->setChecked(option.possible && (mask & option.bit) != 0);
    const QString program = Shown(session_.Document().CODFilename());
    if (txtFilename_->text().isEmpty()) txtFilename_->setText(program);
}

// What this document has nothing of stays chosen as it was for the next one.
void frmDownload::SaveDownloadOptions() {
    auto mask = static_cast<unsigned>(app_.settings.DownloadOptions);
    for (const Option& option : options_) {
        if (!option.possible) continue;
        mask = option.box->isChecked() ? mask | option.bit : mask & ~option.bit;
    }
    app_.settings.DownloadOptions = static_cast<std::int32_t>(mask);
}

void frmDownload::EnableControls() {
    for (const Option& option : options_) {
        const bool needsBase = option.bit == download_option::chkCalibration;
        option.box->setEnabled(!downloading_ && option.possible &&
                               (!needsBase || Chosen(download_option::chkBase)));
    }
    const bool program = !downloading_ && Chosen(download_option::chkCODFile);
    txtFilename_->setEnabled(program);
    cmdBrowse_->setEnabled(program);
    cmdStart_->setEnabled(!downloading_);
    cmdClose_->setEnabled(!downloading_);
    cmdAbort_->setEnabled(downloading_);
}

void frmDownload::cmdBrowse_Click() {
    const ResourceTexts& texts = app_.model.texts;
    const QString file =
        dialogs_.AskOpenFile(this, {PlainCaption(Say(texts, say::kProgramFile)),
                                    Shown(app_.settings.LastFolder),
                                    {Say(texts, say::kProgramFiles) + QStringLiteral(" (*.cod)"),
                                     Say(texts, say::kAllFiles) + QStringLiteral(" (*.*)")},
                                    QStringLiteral("cod")});
    if (!file.isEmpty()) txtFilename_->setText(file);
}

void frmDownload::cmdStart_Click() {
    const ResourceTexts& texts = app_.model.texts;
    if (Mask() == 0) return lblStatus_->setText(Say(texts, say::kNothingChosen));
    DownloadOptions options;
    options.mask = Mask();
    options.haltOnError = app_.settings.HaltOnDownloadError;
    if (Chosen(download_option::chkCODFile)) {
        options.programFile = Utf8(txtFilename_->text().trimmed());
        if (options.programFile.empty()) return lblStatus_->setText(Say(texts, say::kNeedProgram));
    }
    if (!MayReplace()) return;
    SaveDownloadOptions();
    const DownloadReport report = Run(options);
    cmdClose_->setFocus();
    txtCurrentCommand_->clear();
    // Stays to be read when the box that told it is closed.
    if (!report.reason.empty()) lblStatus_->setText(Shown(report.status + "\n" + report.reason));
    if (report.end == DownloadReport::End::Lost && journal_.Find())
        lblStatus_->setText(lblStatus_->text() + QLatin1Char(' ') + Say(texts, compare_text::kPositionKept));
    KeepAccepted(report);
    emit Ended(report);
    if (!report.failed.empty()) ShowDownloadErrors(report);
}

DownloadReport frmDownload::Run(const DownloadOptions& options) {
    const LinkDesk::Use use(desk_);
    const auto end = qScopeGuard([this] {
        elapsed_->Stop();
        downloading_ = false;
        EnableControls();
    });
    downloading_ = true;
    EnableControls();
    cmdAbort_->setFocus();
    lblDownloadErrors_->setText(Shown(ErrorsText(0)));
    elapsed_->Start();
    shown_.invalidate();
    accepted_.clear();
    try {
        return RunJournaled(options);
    } catch (const Error& error) {
        const ResourceTexts& texts = app_.model.texts;
        app_.Record(error);
        DownloadReport report;
        report.status = texts.Text(link_text::kFailed);
        lblStatus_->setText(Shown(report.status));
        TellError(dialogs_, texts, this, Say(texts, say::kDownloadFailedTitle), error);
        return report;
    }
}

bool frmDownload::MayReplace() {
    using namespace compare_text;
    const ResourceTexts& texts = app_.model.texts;
    return !journal_.Find() || dialogs_.Ask(this, {Tone::Warning,
                                                   Say(texts, kReplacesTitle),
                                                   Say(texts, kReplaces),
                                                   {},
                                                   {Say(texts, kReplacesGo), Say(texts, say::kCancel)},
                                                   1}) == 0;
}

// Without a journal it goes as well, but cannot be resumed.
DownloadReport frmDownload::RunJournaled(const DownloadOptions& options) {
    const ResourceTexts& texts = app_.model.texts;
    const SendRecord record{.where = desk_.Link().Where(),
                            .document = Utf8(documentName_),
                            .backup = {},
                            .target = app_.model.target,
                            .timeoutMs = options.timeoutMs,
                            .haltOnError = options.haltOnError,
                            .steps = PlanDownload(session_.Document(), options, app_.model.target.Gated()),
                            .fates = {}};
    try {
        journal_.Begin(record);
    } catch (const Error& error) {
        app_.Record(error);
        Notice({}, error.Description() + " " + texts.Text(compare_text::kNoPosition));
    }
    DownloadReport report = download_.RunSteps(record.steps, options, texts);
    if (report.end == DownloadReport::End::Lost) {
        journal_.Rest();
    } else {
        journal_.Remove();
    }
    return report;
}

// Every line was noted before it went out. The failed ones are told in that order; beyond them only the
// last line can be without an answer, when the run was ended in its midst.
void frmDownload::KeepAccepted(const DownloadReport& report) {
    auto failed = report.failed.begin();
    std::erase_if(accepted_, [&](const std::string& line) {
        const bool refused = failed != report.failed.end() && failed->line == line;
        if (refused) ++failed;
        return refused;
    });
    accepted_.resize(std::min(accepted_.size(), static_cast<std::size_t>(report.accepted)));
}

void frmDownload::cmdAbort_Click() {
    download_.Abort();
}

void frmDownload::ShowDownloadErrors(const DownloadReport& report) {
    const ResourceTexts& texts = app_.model.texts;
    const int answer = dialogs_.Ask(this, {Tone::Warning,
                                           Say(texts, say::kDownloadTitle),
                                           Shown(ViewErrorsQuestion(report.failed.size())),
                                           {},
                                           {Say(texts, say::kViewErrors), Say(texts, say::kNotNow)}});
    if (answer == 0) (new frmDownloadErrors(texts, report.failed, this))->open();
}

// While it sends, leaving means ending that; the dialog is left by a second one.
void frmDownload::reject() {
    if (downloading_) return cmdAbort_Click();
    SaveDownloadOptions();
    QDialog::reject();
}

void frmDownload::Status(const std::string& text) {
    lblStatus_->setText(Shown(text));
}

void frmDownload::Line(const std::string& line, int number, int total) {
    accepted_.push_back(line);
    if (shown_.isValid() && shown_.elapsed() < kShowEvery && number < total) return;
    shown_.start();
    progress_->setRange(0, total);
    progress_->setValue(number);
    txtCurrentCommand_->setText(ShownValue(line));
}

void frmDownload::Errors(const std::string& text) {
    lblDownloadErrors_->setText(Shown(text));
}

void frmDownload::Notice(const std::string& title, const std::string& text) {
    const QString heading = title.empty() ? windowTitle() : Shown(title);
    Tell(dialogs_, app_.model.texts, this, title.empty() ? Tone::Information : Tone::Warning, heading,
         Shown(text));
}

}  // namespace calyx::ui
