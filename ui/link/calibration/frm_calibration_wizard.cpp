#include "ui/link/calibration/frm_calibration_wizard.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateTime>
#include <QDir>
#include <QLineEdit>
#include <QProgressBar>
#include <QScopeGuard>
#include <QStackedWidget>
#include <QTextBrowser>

#include "comm/calibration/certificate.h"
#include "model/language/reason.h"
#include "model/language/text.h"
#include "ui/dialogs/screen_fit.h"
#include "ui/link/calibration/print_page.h"
#include "ui/link/calibration/wizard_texts.h"
#include "ui/link/dialog_parts.h"
#include "ui/texts.h"
#include "ui/theme/theme.h"
#include "ui/widgets/scale_display.h"

namespace calyx::ui {

using namespace wizard_text;

namespace {
constexpr QSize kUsual(640, 480);
constexpr int kWeightWidth = 120, kCountWidth = 160;
constexpr int kCountColumnAt = 4;  // of the grid of linear points
}  // namespace

frmCalibrationWizard::frmCalibrationWizard(AppContext& app, DocumentSession& session, LinkDesk& desk,
                                           Dialogs& dialogs, const QString& documentName, QWidget* parent)
    : QDialog(parent),
      app_(app),
      session_(session),
      desk_(desk),
      dialogs_(dialogs),
      documentName_(documentName),
      calibration_(desk.Link(), app.model, *this, JournalFile(app)),
      pages_(new QStackedWidget),
      scale_(new QComboBox),
      weight_(new QLineEdit),
      who_(new QLineEdit),
      keepZero_(new QCheckBox(Text(kKeepZero))),
      keepSpan_(new QCheckBox(Text(kKeepSpan))),
      zeroCount_(new QLabel),
      spanCount_(new QLabel),
      status_(MakeNote("lblStatus")),
      certificate_(new QTextBrowser),
      progress_(new QProgressBar),
      back_(MakeButton(app.model.texts, kBack, "cmdBack")),
      next_(MakeButton(app.model.texts, kNext, "cmdNext")),
      cancel_(MakeButton(app.model.texts, say::kCancel, "cmdCancel")) {
    setObjectName(QStringLiteral("frmCalibrationWizard"));
    setWindowTitle(Text(kTitle));
    setAttribute(Qt::WA_DeleteOnClose);
    MakePages();
    MakeWeightRow();
    AddScales();
    progress_->setRange(0, 0);
    progress_->setTextVisible(false);
    progress_->setAccessibleName(Text(say::kProgressName));
    KeepRoom(*progress_);
    status_->setMinimumHeight(2 * status_->fontMetrics().lineSpacing());
    status_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    QVBoxLayout* all = MakeColumn(*this);
    all->addWidget(pages_, 1);
    all->addWidget(status_);
    all->addWidget(progress_);
    all->addLayout(MakeButtons());
    resize(FitScreen(*this, kUsual));
    Show(kScalePage);
}

QString frmCalibrationWizard::Text(int number) const {
    return Say(app_.model.texts, number);
}

void frmCalibrationWizard::AddScales() {
    const CIndicator& document = session_.Document();
    for (const int number : ScalesToCalibrate(document)) {
        const std::string alias =
            document.Value("SC.ALIAS#" + std::to_string(number)).value_or(std::string());
        scale_->addItem(Say(app_.model.texts, kScaleName, QString::number(number), ShownValue(alias)),
                        number);
    }
    if (scale_->count() > 0) return;
    status_->setText(Text(kNoScales));
    scale_->setEnabled(false);
}

QWidget* frmCalibrationWizard::AddPage(int title, int words) {
    auto* page = new QWidget;
    auto* column = new QVBoxLayout(page);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(metrics::kGroups);
    auto* heading = new QLabel(Text(title));
    heading->setFont(TextFont(TextSize::Heading));
    auto* text = MakeNote("lblWords");
    text->setText(Text(words));
    column->addWidget(heading);
    column->addWidget(text);
    pages_->addWidget(page);
    return page;
}

// Pages in the order of Page.
void frmCalibrationWizard::MakePages() {
    QWidget* page = AddPage(kStartTitle, kIntro);
    auto* fields = new QGridLayout;
    fields->setHorizontalSpacing(metrics::kGroups);
    fields->setColumnStretch(1, 1);
    scale_->setObjectName(QStringLiteral("cboScale"));
    scale_->setMinimumWidth(2 * kWeightWidth);
    AddField(*fields, 0, Text(kScale), scale_);
    auto* column = static_cast<QVBoxLayout*>(page->layout());
    column->addLayout(fields);
    column->addStretch();

    page = AddPage(kZeroTitle, kZeroWords);
    AddStep(page, kZero, "cmdCalZero", &frmCalibrationWizard::cmdCalZero_Click);
    page->layout()->addWidget(zeroCount_);
    page->layout()->addWidget(keepZero_);
    static_cast<QVBoxLayout*>(page->layout())->addStretch();
    page = AddPage(kSpanTitle, kSpanWords);
    AddStep(page, kSpan, "cmdCalSpan", &frmCalibrationWizard::cmdCalSpan_Click);
    page->layout()->addWidget(spanCount_);
    page->layout()->addWidget(keepSpan_);
    static_cast<QVBoxLayout*>(page->layout())->addStretch();
    zeroCount_->setObjectName(QStringLiteral("lblZeroCount"));
    spanCount_->setObjectName(QStringLiteral("lblSpanCount"));
    keepZero_->setObjectName(QStringLiteral("chkKeepZero"));
    keepSpan_->setObjectName(QStringLiteral("chkKeepSpan"));
    for (QCheckBox* keep : {keepZero_, keepSpan_}) {
        keep->setMinimumHeight(metrics::kControlHeight);
        connect(keep, &QCheckBox::toggled, this, &frmCalibrationWizard::ShowButtons);
    }
    AddLinear(AddPage(kLinearTitle, kLinearWords));
    page = AddPage(kRezeroTitle, kRezeroWords);
    AddStep(page, kRezero, "cmdRezero", &frmCalibrationWizard::cmdRezero_Click);
    static_cast<QVBoxLayout*>(page->layout())->addStretch();
    AddEnd(AddPage(kEndTitle, kEndWords));
    page = AddPage(kTitle, kPendingTitle);
    static_cast<QVBoxLayout*>(page->layout())->addStretch();
}

// Weights are in the primary units of the scale, which is chosen later.
QLabel* frmCalibrationWizard::MakeUnits() {
    auto* units = new QLabel;
    units->setForegroundRole(role::kQuietText);
    units_.push_back(units);
    return units;
}

void frmCalibrationWizard::ShowUnits(int scale) {
    const QString units = DisplaysOf(std::as_const(session_).Document().Scales())(scale).units;
    for (QLabel* label : units_) label->setText(units);
}

// Zero and span have the same weight.
void frmCalibrationWizard::MakeWeightRow() {
    weightRow_ = new QWidget(this);
    auto* fields = new QHBoxLayout(weightRow_);
    fields->setContentsMargins(0, 0, 0, 0);
    fields->setSpacing(metrics::kRelated);
    auto* label = new QLabel(Text(kTestWeight));
    label->setBuddy(weight_);
    weight_->setObjectName(QStringLiteral("txtTestWeight"));
    weight_->setFixedWidth(kWeightWidth);
    fields->addWidget(label);
    fields->addWidget(weight_);
    fields->addWidget(MakeUnits());
    fields->addStretch();
}

void frmCalibrationWizard::AddStep(QWidget* page, int caption, const char* name,
                                   void (frmCalibrationWizard::*click)()) {
    QPushButton* step = MakeButton(app_.model.texts, caption, name);
    connect(step, &QPushButton::clicked, this, click);
    auto* row = new QHBoxLayout;
    row->addWidget(step);
    row->addStretch();
    static_cast<QVBoxLayout*>(page->layout())->addLayout(row);
}

void frmCalibrationWizard::AddLinear(QWidget* page) {
    const ResourceTexts& texts = app_.model.texts;
    auto* fields = new QGridLayout;
    fields->setHorizontalSpacing(metrics::kGroups);
    fields->setVerticalSpacing(metrics::kRelated);
    fields->setColumnStretch(kCountColumnAt, 1);
    const auto head = [&](int text, int column) {
        auto* heading = new QLabel(Text(text));
        heading->setForegroundRole(role::kQuietText);
        fields->addWidget(heading, 0, column);
    };
    head(kWeightColumn, 1);
    head(kCountColumn, kCountColumnAt);
    for (int point = 1; point <= CalibrationValues::kPoints; ++point) {
        const QString number = QString::number(point);
        auto* weight = new QLineEdit;
        weight->setObjectName(QStringLiteral("txtLinear") + number);
        weight->setFixedWidth(kWeightWidth);
        weight->setToolTip(Say(texts, kPointName, number));
        AddField(*fields, point, Say(texts, kPoint, number), weight);
        auto* go = new QPushButton(Say(texts, kPointDo, number));
        go->setObjectName(QStringLiteral("cmdGoLinear") + number);
        go->setAutoDefault(false);
        connect(go, &QPushButton::clicked, this, [this, point] { cmdGoLinear_Click(point); });
        fields->addWidget(MakeUnits(), point, 2);
        fields->addWidget(go, point, 3);
        auto* count = new QLabel;
        count->setObjectName(QStringLiteral("lblLinear") + number);
        count->setFont(FiguresFont());
        count->setMinimumWidth(kCountWidth);
        fields->addWidget(count, point, kCountColumnAt);
        points_[static_cast<std::size_t>(point - 1)] = {weight, count};
    }
    auto* column = static_cast<QVBoxLayout*>(page->layout());
    column->addLayout(fields);
    column->addStretch();
}

void frmCalibrationWizard::AddEnd(QWidget* page) {
    auto* row = new QHBoxLayout;
    row->setSpacing(metrics::kRelated);
    auto* label = new QLabel(Text(kWho));
    label->setBuddy(who_);
    who_->setObjectName(QStringLiteral("txtWho"));
    QPushButton* save = MakeButton(app_.model.texts, kSave, "cmdSaveCertificate");
    QPushButton* print = MakeButton(app_.model.texts, kPrint, "cmdPrintCertificate");
    row->addWidget(label);
    row->addWidget(who_, 1);
    row->addWidget(save);
    row->addWidget(print);
    certificate_->setObjectName(QStringLiteral("certificate"));
    certificate_->setAccessibleName(Text(kCertificateName));
    auto* column = static_cast<QVBoxLayout*>(page->layout());
    column->addLayout(row);
    column->addWidget(certificate_, 1);
    connect(who_, &QLineEdit::textChanged, this, &frmCalibrationWizard::ShowCertificate);
    connect(save, &QPushButton::clicked, this, &frmCalibrationWizard::SaveCertificate);
    connect(print, &QPushButton::clicked, this, &frmCalibrationWizard::Print);
}

QLayout* frmCalibrationWizard::MakeButtons() {
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(metrics::kRelated);
    buttons->addStretch();
    buttons->addWidget(back_);
    buttons->addWidget(next_);
    buttons->addWidget(cancel_);
    connect(back_, &QPushButton::clicked, this, &frmCalibrationWizard::MoveBack);
    connect(next_, &QPushButton::clicked, this, &frmCalibrationWizard::MoveNext);
    connect(cancel_, &QPushButton::clicked, this, &frmCalibrationWizard::reject);
    return buttons;
}

void frmCalibrationWizard::Show(Page page) {
    pages_->setCurrentIndex(page);
    const bool weighs = page == kZeroPage || page == kSpanPage;
    constexpr int kBelowWords = 2;
    if (weighs)
        static_cast<QVBoxLayout*>(pages_->currentWidget()->layout())->insertWidget(kBelowWords, weightRow_);
    weightRow_->setVisible(weighs);
    ShowButtons();
}

// A page lets go on once its step is done; points and the zero without hooks can be left out.
void frmCalibrationWizard::ShowButtons() {
    const int page = pages_->currentIndex();
    const bool done = (page == kScalePage && scale_->count() > 0) ||
                      (page == kZeroPage && (zeroed_ || keepZero_->isChecked())) ||
                      (page == kSpanPage && (spanned_ || keepSpan_->isChecked())) || page == kLinearPage ||
                      page == kRezeroPage ||
                      (page == kEndPage && calibration_.At() == CCalibration::State::Read);
    pages_->setEnabled(!works_);
    back_->setEnabled(!works_ && page > kZeroPage && page <= kEndPage);
    next_->setEnabled(!works_ && done);
    next_->setVisible(page != kRestorePage);
    back_->setVisible(page != kRestorePage);
    next_->setText(Text(page == kEndPage ? kFinish : kNext));
    next_->setDefault(true);
    progress_->setVisible(works_);
}

void frmCalibrationWizard::MoveNext() {
    const int page = pages_->currentIndex();
    if (page == kScalePage) return GetCurrentCalibration();
    if (page == kEndPage) return cmdFinish_Click();
    status_->clear();
    Show(static_cast<Page>(page + 1));
    if (page + 1 == kEndPage) GetNewCalibration();
}

void frmCalibrationWizard::MoveBack() {
    status_->clear();
    Show(static_cast<Page>(pages_->currentIndex() - 1));
}

// Everything that talks to the indicator. Cancel ends it and then puts back what was there.
bool frmCalibrationWizard::Work(const std::function<bool()>& work) {
    bool success = false;
    {
        const LinkDesk::Use use(desk_);
        app_.cancel = false;
        works_ = true;
        ShowButtons();
        const auto end = qScopeGuard([this] {
            works_ = false;
            app_.cancel = false;
            ShowButtons();
        });
        try {
            success = work();
        } catch (const Error& error) {
            app_.Record(error);
            ShowNote(*status_, Shown(error.Description()), true);
        }
    }
    status_->setForegroundRole(success ? role::kText : role::kProblem);
    if (success && next_->isEnabled()) next_->setFocus();
    if (std::exchange(leaving_, false) && !givingUp_) GiveUp();
    return success;
}

void frmCalibrationWizard::GetCurrentCalibration() {
    const int scale = scale_->currentData().toInt();
    if (!Work([&] { return calibration_.Begin(scale); })) return;
    const CalibrationValues& old = calibration_.Old();
    ShowUnits(scale);
    weight_->setText(Shown(old.testWeight));
    for (std::size_t i = 0; i < points_.size(); ++i) {
        points_[i].weight->setText(Shown(old.linearWeights[i]));
        points_[i].count->setText(Shown(old.linearCounts[i]));
    }
    if (isVisible()) Show(kZeroPage);
}

std::optional<std::string> frmCalibrationWizard::Weight(QLineEdit& field) {
    const std::string typed = Utf8(field.text().trimmed());
    const auto number = ReadDecimal(typed);
    if (number && number->whole && number->value > 0) return typed;
    ShowNote(*status_, Text(kWrongWeight), true);
    field.setFocus();
    field.selectAll();
    return std::nullopt;
}

void frmCalibrationWizard::ShowCount(QLabel& label, const std::string& command, const std::string& before) {
    const auto reply = desk_.Link().GetLine(command);
    if (!reply) return;
    label.setText(Say(app_.model.texts, kCounts, Shown(StripEcho(*reply, command)), Shown(before)));
}

void frmCalibrationWizard::cmdCalZero_Click() {
    const auto weight = Weight(*weight_);
    if (!weight) return;
    zeroed_ = Work([&] {
        if (!calibration_.Zero(*weight)) return false;
        ShowCount(*zeroCount_, GetZeroCalCommand(calibration_.SelectedScale()), calibration_.Old().zeroCount);
        return true;
    });
    ShowButtons();
}

void frmCalibrationWizard::cmdCalSpan_Click() {
    const auto weight = Weight(*weight_);
    if (!weight) return;
    spanned_ = Work([&] {
        if (!calibration_.SetTestWeight(*weight) || !calibration_.Span()) return false;
        ShowCount(*spanCount_, GetSpanCalCommand(calibration_.SelectedScale()), calibration_.Old().spanCount);
        return true;
    });
    ShowButtons();
}

void frmCalibrationWizard::cmdRezero_Click() {
    Work([&] { return calibration_.Rezero(); });
}

void frmCalibrationWizard::cmdGoLinear_Click(int point) {
    const Point& fields = points_[static_cast<std::size_t>(point - 1)];
    const auto weight = Weight(*fields.weight);
    if (!weight || !Work([&] { return calibration_.Linear(point, *weight); })) return;
    const auto i = static_cast<std::size_t>(point - 1);
    fields.count->setText(Say(app_.model.texts, kPointCounts, Shown(calibration_.New().linearCounts[i]),
                              Shown(calibration_.Old().linearCounts[i])));
}

void frmCalibrationWizard::GetNewCalibration() {
    if (!Work([&] { return calibration_.GetNewCalibration(); })) return;
    ShowCertificate();
    ShowButtons();
}

std::string frmCalibrationWizard::Certificate() const {
    const std::string number = std::to_string(calibration_.SelectedScale());
    const auto value = [&](const char* key) {
        return Utf8(ShownValue(session_.Document().Value(key + number).value_or(std::string())));
    };
    return CertificateHtml(
        {.scale = calibration_.SelectedScale(),
         .alias = value("SC.ALIAS#"),
         .units = value("SC.PRI.UNITS#"),
         .indicator = Utf8(desk_.Identification()),
         .where = Utf8(desk_.Where()),
         .date = Utf8(QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd HH:mm"))),
         .who = Utf8(who_->text().trimmed()),
         .document = Utf8(documentName_),
         .before = calibration_.Old(),
         .after = calibration_.New()},
        app_.model.texts);
}

void frmCalibrationWizard::ShowCertificate() {
    certificate_->setHtml(Shown(Certificate()));
}

void frmCalibrationWizard::SaveCertificate() {
    const ResourceTexts& texts = app_.model.texts;
    const QString path = dialogs_.AskSaveFile(this, {Text(kSaveTitle),
                                                     Shown(app_.settings.LastFolder),
                                                     {Text(kHtmlFiles) + QStringLiteral(" (*.html)")},
                                                     QStringLiteral("html")});
    if (path.isEmpty() || !AskReplace(dialogs_, texts, this, path)) return;
    try {
        app_.files.Replace(Utf8(QDir::toNativeSeparators(path)), Certificate());
        ShowNote(*status_, Say(texts, kSaved, QDir::toNativeSeparators(path)), false);
    } catch (const std::system_error& failure) {
        ShowNote(*status_, Shown(Reason(failure)), true);
    }
}

void frmCalibrationWizard::Print() {
    PrintPage(*this, Text(kCertificateName), Shown(Certificate()));
}

void frmCalibrationWizard::cmdFinish_Click() {
    const int scale = calibration_.SelectedScale();
    if (!Work([&] { return calibration_.Finish(); })) return;
    const auto lines = calibration_.New().Lines(scale);
    const auto refused = session_.Do(Utf8(Say(app_.model.texts, kStepName, QString::number(scale))),
                                     [&](CIndicator& document) { return document.Import(lines); });
    if (!refused.empty()) {
        QStringList words;
        for (const Refusal& refusal : refused) words += ShownValue(refusal.key);
        Tell(dialogs_, app_.model.texts, this, Tone::Warning, windowTitle(),
             Say(app_.model.texts, kRefused, words.join(QStringLiteral(", "))));
    }
    accept();
}

// A command under way is ended first; the rest follows when it has.
void frmCalibrationWizard::reject() {
    if (!works_) return GiveUp();
    leaving_ = true;
    app_.cancel = true;
}

void frmCalibrationWizard::GiveUp() {
    givingUp_ = true;
    while (calibration_.At() != CCalibration::State::Idle) {
        if (Work([&] { return calibration_.Cancel(); })) break;
        const int answer = dialogs_.Ask(
            this, {Tone::Warning, Text(kNotBackTitle), Text(kNotBack), {}, {Text(kTryAgain), Text(kLeave)}});
        if (answer != 0) break;
    }
    QDialog::reject();
}

void frmCalibrationWizard::RestorePending() {
    const auto record = calibration_.Pending();
    if (!record) return;
    Show(kRestorePage);
    pages_->currentWidget()
        ->findChild<QLabel*>(QStringLiteral("lblWords"))
        ->setText(Say(app_.model.texts, kRestoring, QString::number(record->scale)));
    Work([&] { return calibration_.RestorePending(); });
    cancel_->setText(Text(say::kCloseMnemonic));
}

void frmCalibrationWizard::WriteStatusMessage(int, const std::string& text) {
    ShowNote(*status_, Shown(text), false);
}

}  // namespace calyx::ui
