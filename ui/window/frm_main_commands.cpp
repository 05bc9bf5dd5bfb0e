// What the main window does and shows, as far as it is not the business of one of its parts.

#include <QActionGroup>
#include <QApplication>
#include <QDesktopServices>
#include <QFileInfo>
#include <QLocale>
#include <QMenu>
#include <QToolButton>
#include <QUrl>

#include "app/version.h"
#include "ui/dialogs/frm_keyboard.h"
#include "ui/dialogs/frm_parameters.h"
#include "ui/items/items_texts.h"
#include "ui/items/restore_defaults.h"
#include "ui/link/frm_compare.h"
#include "ui/text.h"
#include "ui/texts.h"
#include "ui/window/chrome_style.h"
#include "ui/window/frm_main.h"

namespace calyx::ui {

namespace {

QString ClockWords(const QTime& time) {
    // Without the seconds that some locales have in it.
    return QLocale().toString(time, QLocale().timeFormat(QLocale::ShortFormat).remove(QStringLiteral(":ss")));
}

// "3.10." as it is spoken of.
QString VersionName(const std::string& prefix) {
    return Shown(std::string_view(prefix).substr(0, prefix.empty() ? 0 : prefix.size() - 1));
}

}  // namespace

void frmMain::ShowPlace(const Place& place) {
    session_.EndTyping();
    lines_->SetPlace(place);
    pages_->Show(place);
}

void frmMain::ShowParameter(const QString& key) {
    const Place* place = PlaceOf(session_.Document(), KeyBytes(key));
    if (place == nullptr) return status_->ShowMessage(Say(app_.model.texts, say::kNotInDocument, key));
    navigation_->Show(*place);
    if (!pages_->FocusKey(key)) pages_->FocusPage();
    lines_->SelectKey(key);
}

// On the page that is shown, if it has one of them: who takes a change back wants to see it where it was
// made.
void frmMain::ShowOneOf(const QStringList& keys) {
    constexpr qsizetype kMostTried = 50;
    for (const QString& key : keys.mid(0, kMostTried)) {
        if (!pages_->FocusKey(key)) continue;
        lines_->SelectKey(key);
        return;
    }
    ShowParameter(keys.front());
}

void frmMain::ShowPane(QWidget* pane) {
    actions_->viewPanes->setChecked(true);
    panes_->setCurrentWidget(pane);
    panes_->Open();
}

void frmMain::ShowTitle() {
    const ResourceTexts& texts = app_.model.texts;
    const QString name =
        files_.IsOpenElsewhere() ? Say(texts, say::kAlsoElsewhere, files_.Name()) : files_.Name();
    setWindowTitle(Say(texts, say::kWindowTitle, name));
    setWindowModified(session_.Document().IsDirty());
}

void frmMain::ShowSteps() {
    const ResourceTexts& texts = app_.model.texts;
    const auto show = [&texts](QAction* action, int plain, int named,
                               const std::optional<std::string>& step) {
        QString name = step ? Shown(*step) : QString();
        name.replace(QLatin1Char('&'), QStringLiteral("&&"));
        action->setText(step ? Say(texts, named, name) : Say(texts, plain));
        action->setIconText(PlainCaption(Say(texts, plain)));
        action->setToolTip(step ? PlainCaption(Say(texts, named, Shown(*step)))
                                : PlainCaption(Say(texts, plain)));
    };
    show(actions_->editUndo, say::kUndo, say::kUndoStep, session_.UndoName());
    show(actions_->editRedo, say::kRedo, say::kRedoStep, session_.RedoName());
}

void frmMain::Undo() {
    const auto name = session_.UndoName();
    if (!name) return status_->ShowMessage(Text(say::kNothingToUndo));
    session_.Undo();
    ShowSteps();
    status_->ShowMessage(Say(app_.model.texts, say::kUndone, Shown(*name)));
}

// What is being typed goes in before it is judged what would be lost.
void frmMain::RestoreShown() {
    if (!files_.FinishInput()) return;
    const auto item = pages_->ShownItem();
    if (!item) return status_->ShowMessage(Text(items_text::kNoItemShown));
    RestoreDefaults(
        session_, [this](const Question& question) { return dialogs_.Ask(this, question); }, *item,
        *pages_->ShownPlace());
}

void frmMain::Redo() {
    const auto name = session_.RedoName();
    if (!name) return status_->ShowMessage(Text(say::kNothingToRedo));
    session_.Redo();
    ShowSteps();
    status_->ShowMessage(Say(app_.model.texts, say::kRedone, Shown(*name)));
}

void frmMain::Check() {
    panes_->Refresh();
    ShowPane(&panes_->Problems());
    if (panes_->Problems().Count() == 0) status_->ShowMessage(Text(say::kNoProblemsFound));
}

void frmMain::ShowProblemCounts() {
    std::map<const Place*, int> counts;
    for (const BrokenRule& rule : panes_->Problems().Rules()) {
        const Place* place = PlaceOf(session_.Document(), rule.key);
        for (const Place* other : AllPlaces()) {
            if (place == nullptr && other->section == rule.section) place = other;
        }
        if (place != nullptr) ++counts[place];
    }
    navigation_->SetProblems(counts);
}

QString frmMain::FileFact() const {
    const ResourceTexts& texts = app_.model.texts;
    QString fact = Say(texts, say::kFactNew);
    if (!session_.Document().IsNew()) {
        fact = Say(texts, files_.SavedSinceOpened() ? say::kFactSaved : say::kFactOpened, files_.Name(),
                   ClockWords(files_.At()));
    }
    const int changes = panes_->Changes().Count();
    if (changes == 0) return fact;
    return changes == 1 ? Say(texts, say::kFactOneChange, fact)
                        : Say(texts, say::kFactChanges, fact, QString::number(changes));
}

QString frmMain::DeviceFact() const {
    const ResourceTexts& texts = app_.model.texts;
    QString fact = Say(texts, say::kNotConnected);
    if (desk_.Connected()) {
        fact = desk_.Simulated() ? Say(texts, say::kConnectedSimulated, desk_.Identification())
                                 : Say(texts, say::kConnectedTo, desk_.Identification(), desk_.Where());
    }
    const auto sent = link_.LastSent();
    if (!sent) return fact;
    const QString at = ClockWords(sent->at);
    fact = sent->changesSince == 0
               ? Say(texts, say::kFactSent, fact, at)
               : Say(texts, say::kFactSentSince, fact, at, QString::number(sent->changesSince));
    return sent->notSent == 0 ? fact : Say(texts, say::kFactNotSent, fact, QString::number(sent->notSent));
}

void frmMain::ShowFacts() {
    const TargetVersion& target = app_.model.target;
    status_->SetFile(FileFact());
    status_->SetDevice(DeviceFact());
    status_->SetTarget(
        Say(app_.model.texts, target.cb2 ? say::kTargetCb2 : say::kTarget, VersionName(target.prefix)));
    const bool connected = desk_.Connected();
    const QString state = !connected          ? Text(say::kNotConnected)
                          : desk_.Simulated() ? PlainCaption(Text(say::kSimulated))
                                              : desk_.Where();
    // A ring or a disc: seen without colour.
    device_->setText(QString(QChar(connected ? 0x25CF : 0x25CB)) + QLatin1Char(' ') + state);
    device_->setToolTip(DeviceFact());
}

void frmMain::ShowDevice() {
    if (!desk_.Connected()) pages_->SetDiffering({});
    lines_->SetConnected(desk_.Connected() ? std::optional(app_.model.target.prefix) : std::nullopt);
    ShowFacts();
}

void frmMain::FillRecent() {
    actions_->recent->clear();
    const QStringList files = files_.Recent();
    for (qsizetype i = 0; i < files.size(); ++i) {
        QString name = files[i];
        name.replace(QLatin1Char('&'), QStringLiteral("&&"));
        const QString number = i < 9 ? QStringLiteral("&%1").arg(i + 1) : QString::number(i + 1);
        QAction* action = actions_->recent->addAction(number + QStringLiteral("  ") + name);
        connect(action, &QAction::triggered, this, [this, file = files[i]] {
            if (files_.MayLeave()) files_.OpenPath(file);
        });
    }
    if (files.isEmpty()) actions_->recent->addAction(Text(say::kNoRecent));
}

// The same choice as in the head of the lines pane.
void frmMain::FillLinesShown() {
    QMenu& menu = *actions_->linesShown;
    menu.clear();
    delete menu.findChild<QActionGroup*>();
    auto* one = new QActionGroup(&menu);
    const auto add = [&](const QString& caption, const std::optional<std::string>& version) {
        QAction* action = menu.addAction(caption);
        action->setCheckable(true);
        one->addAction(action);
        action->setChecked(lines_->Version() == version);
        connect(action, &QAction::triggered, this, [this, version] {
            ShowLines(true);
            lines_->SetVersion(version);
        });
    };
    add(Text(say::kAsFile), std::nullopt);
    menu.addSeparator();
    for (auto version = kVersions.rbegin(); version != kVersions.rend(); ++version) {
        const std::string prefix(*version);
        add(Say(app_.model.texts, say::kAsSent, VersionName(prefix)), prefix);
    }
    menu.addSeparator();
    QAction* cb2 = menu.addAction(Text(say::kCb2));
    cb2->setCheckable(true);
    cb2->setChecked(lines_->Cb2());
    connect(cb2, &QAction::toggled, lines_, &ctlLines::SetCb2);
}

void frmMain::SetLook(const QString& word) {
    app_.settings.Theme = Utf8(word);
    PutOn(*qApp, LookOf(app_.settings.Theme));
}

void frmMain::OpenDropped(const QStringList& files) {
    if (desk_.Busy()) {
        return Tell(dialogs_, app_.model.texts, this, Tone::Information, Text(say::kBusyTitle),
                    Text(say::kBusy));
    }
    if (QApplication::activeModalWidget() != nullptr) return status_->ShowMessage(Text(say::kDialogInFront));
    if (files.size() == 2) return CompareFiles(files[0], files[1]);
    if (files.size() != 1) return status_->ShowMessage(Text(say::kDroppedMany));
    if (files_.MayLeave()) files_.OpenPath(files[0]);
}

void frmMain::CompareFiles(const QString& before, const QString& after) {
    try {
        CIndicator a(app_.model);
        CIndicator b(app_.model);
        a.Load(Utf8(before), true);
        b.Load(Utf8(after), true);
        const frmCompare::Sides sides{Text(say::kCompareFiles), QFileInfo(before).fileName(),
                                      QFileInfo(after).fileName(), Text(say::kCompareSameFiles)};
        auto* dialog = new frmCompare(Difference(a.Lines(), b.Lines()), a, b, sides, this);
        dialog->open();
    } catch (const Error& error) {
        app_.Record(error);
        TellError(dialogs_, app_.model.texts, this, Text(say::kOpenFailed), error);
    }
}

void frmMain::CompareWithFile() {
    const CIndicator& here = session_.Document();
    try {
        CIndicator file(app_.model);
        file.Load(here.Filename(), true);
        const frmCompare::Sides sides{Text(say::kDifferencesTitle), Text(say::kWindowSide),
                                      Text(say::kFileSide), Text(say::kSameAsFile)};
        auto* dialog = new frmCompare(Difference(here.Lines(), file.Lines()), here, file, sides, this);
        connect(dialog, &frmCompare::Chosen, this, &frmMain::ShowParameter);
        dialog->open();
    } catch (const Error& error) {
        app_.Record(error);
        TellError(dialogs_, app_.model.texts, this, Text(say::kDifferencesTitle), error);
    }
}

void frmMain::ShowParameterReference() {
    (new frmParameters(app_.model, this))->open();
}

void frmMain::ShowKeyboard() {
    (new frmKeyboard(app_.model.texts, actions_->All(), this))->open();
}

void frmMain::ShowHelpContents() {
    const bool shown =
        !app_.helpFile.empty() && QDesktopServices::openUrl(QUrl::fromLocalFile(Shown(app_.helpFile)));
    if (shown) return;
    Tell(dialogs_, app_.model.texts, this, Tone::Information, Text(say::kNoHelpTitle),
         app_.helpFile.empty() ? Text(say::kNoHelp)
                               : Say(app_.model.texts, say::kHelpNotOpened, Shown(app_.helpFile)));
}

void frmMain::About() {
    const ResourceTexts& texts = app_.model.texts;
    const auto oldest = std::string(kVersions.front()), newest = std::string(kVersions.back());
    Tell(dialogs_, texts, this, Tone::Information, PlainCaption(Text(say::kAbout)),
         Say(texts, say::kAboutText, Shown(ProgramVersion()), VersionName(oldest), VersionName(newest)),
         Say(texts, say::kAboutFolders, Shown(app_.folders.userData), Shown(app_.folders.application)));
}

}  // namespace calyx::ui
