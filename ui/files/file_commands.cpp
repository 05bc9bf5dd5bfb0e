#include "ui/files/file_commands.h"

#include <QDir>
#include <QFileInfo>

#include "platform/paths.h"
#include "ui/files/listing.h"
#include "ui/panes/ctl_report.h"
#include "ui/text.h"
#include "ui/texts.h"

namespace calyx::ui {

namespace {

constexpr const char* kNewName = "Untitled.mrn";
constexpr std::chrono::milliseconds kLongestTurn(500);  // of another program; more would be felt

bool CanBeOpenedAnyway(int errorCode) {
    return errorCode == code::kChecksum || errorCode == code::kNoChecksum ||
           errorCode == code::kFileRevision || errorCode == code::kIndicatorRevision;
}

}  // namespace

FileCommands::FileCommands(AppContext& app, DocumentSession& session, Dialogs& dialogs, QWidget* window)
    : app_(app),
      recent_(app.settings),
      session_(session),
      dialogs_(dialogs),
      window_(window),
      open_(app.folders.userData, std::chrono::system_clock::now),
      others_(dialogs, app.model.texts, window),
      watch_(session) {
    connect(&watch_, &FileWatch::Noticed, this, &FileCommands::FileNoticed);
}

QString FileCommands::Name() const {
    const CIndicator& document = session_.Document();
    if (document.IsNew() && !copyOf_.isEmpty()) return Say(app_.model.texts, say::kCopyOf, copyOf_);
    if (document.IsNew()) return Say(app_.model.texts, say::kUntitled);
    return QFileInfo(Shown(document.Filename())).fileName();
}

QString FileCommands::Folder() const {
    const QString last = Shown(app_.settings.LastFolder);
    return last.isEmpty() || !QDir(last).exists() ? QDir::homePath() : last;
}

QStringList FileCommands::ConfigurationFilters() const {
    return {Say(app_.model.texts, say::kConfigurations) + QStringLiteral(" (*.mrn)"),
            Say(app_.model.texts, say::kAllFiles) + QStringLiteral(" (*.*)")};
}

QStringList FileCommands::Recent() const {
    QStringList files;
    for (const std::string& file : recent_.Files()) files += Shown(file);
    return files;
}

void FileCommands::New() {
    if (!MayLeave()) return;
    saved_ = false;
    notKept_ = 0;
    copyOf_.clear();
    open_.LetGo();
    session_.New();
    emit Opened();
}

void FileCommands::Open() {
    if (!MayLeave()) return;
    const QString path = dialogs_.AskOpenFile(window_, {Say(app_.model.texts, say::kOpenTitle), Folder(),
                                                        ConfigurationFilters(), QStringLiteral("mrn")});
    if (!path.isEmpty()) OpenPath(path);
}

bool FileCommands::OpenPath(const QString& path, bool anyway) {
    const std::string file = Utf8(QDir::toNativeSeparators(QFileInfo(path).absoluteFilePath()));
    OpenFiles::Claim claim = open_.Ask(file);
    auto answer = OtherPrograms::Opening::Anyway;
    if (claim.other && !anyway) answer = others_.AskOpen(*claim.other, QFileInfo(path).fileName());
    if (answer == OtherPrograms::Opening::Cancel) return false;
    const bool asCopy = answer == OtherPrograms::Opening::Copy;
    if (!Read(file, anyway, asCopy)) return false;
    open_.Keep(asCopy ? OpenFiles::Claim{} : std::move(claim));
    emit Opened();
    return true;
}

bool FileCommands::Read(const std::string& file, bool anyway, bool asCopy) {
    const QString before = std::exchange(copyOf_, asCopy ? QFileInfo(Shown(file)).fileName() : QString());
    try {
        asCopy ? session_.OpenCopy(file, anyway) : session_.Open(file, anyway);
    } catch (const Error& error) {
        copyOf_ = before;
        app_.Record(error);
        if (CanBeOpenedAnyway(error.Code())) return AskOpenAnyway(error) == 0 && Read(file, true, asCopy);
        Fail(say::kOpenFailed, error);
        if (error.Code() == code::kFileNotFound) {
            recent_.Remove(file);
            SaveSettings();
            emit RecentChanged();
        }
        return false;
    }
    saved_ = false;
    at_ = QTime::currentTime();
    notKept_ = asCopy ? 0 : LinesNotKept(session_.Report());
    Remember(Shown(file));
    return true;
}

void FileCommands::LookAtFile() {
    open_.AskAgain();
    watch_.Look();
}

void FileCommands::Reload() {
    if (!FinishInput()) return;
    const std::size_t changes = session_.Document().IsDirty() ? session_.ChangesSinceSave().Count() : 0;
    switch (others_.AskReload(changes, Name())) {
        case OtherPrograms::Reloading::Anyway:
            break;
        case OtherPrograms::Reloading::Differences:
            return emit DifferencesWanted();
        case OtherPrograms::Reloading::Cancel:
            return;
    }
    if (!Read(session_.Document().Filename(), false, false)) return;
    emit Opened();
    emit Told(Say(app_.model.texts, say::kReloaded, Name()));
}

int FileCommands::AskOpenAnyway(const Error& error) {
    const ResourceTexts& texts = app_.model.texts;
    return dialogs_.Ask(
        window_, {Tone::Warning,
                  Say(texts, say::kOpenFailed),
                  Shown(error.Description()),
                  ErrorNumber(texts, error) + QStringLiteral("\n\n") + Say(texts, say::kOpenAnywayHint),
                  {Say(texts, say::kOpenAnyway), Say(texts, say::kCancel)}});
}

bool FileCommands::FinishInput() {
    const QStringList wrong = session_.FinishInput();
    if (wrong.isEmpty()) return true;
    const ResourceTexts& texts = app_.model.texts;
    const int answer = dialogs_.Ask(window_, {Tone::Warning,
                                              Say(texts, say::kInputTitle),
                                              Say(texts, say::kInputWrong),
                                              wrong.join(QLatin1Char('\n')),
                                              {Say(texts, say::kKeepOldValue), Say(texts, say::kCorrect)},
                                              1});
    if (answer == 0) session_.GiveUpInput();
    return answer == 0;
}

bool FileCommands::Save() {
    if (!FinishInput()) return false;
    return session_.Document().IsNew() ? SaveAs() : SaveOverOpened();
}

bool FileCommands::SaveOverOpened() {
    switch (AskDropLines()) {
        case Drop::Go:
            return SaveTo(Shown(session_.Document().Filename()), Over::WhatIsKnown);
        case Drop::Elsewhere:
            return SaveAs();
        case Drop::Cancel:
            break;
    }
    return false;
}

bool FileCommands::IsOpened(const QString& path) const {
    const CIndicator& document = session_.Document();
    if (document.IsNew() || path.isEmpty()) return false;
    const QFileInfo opened(Shown(document.Filename())), other(path);
    return SamePath(Utf8(opened.absoluteFilePath()), Utf8(other.absoluteFilePath())) || opened == other;
}

bool FileCommands::SaveAs() {
    if (!FinishInput()) return false;
    const QString path =
        AskTarget(say::kSaveTitle, ProposedName(), ConfigurationFilters(), QStringLiteral("mrn"));
    // A file that has gone and is named again is meant to be there again.
    if (IsOpened(path) && QFileInfo::exists(path)) return SaveOverOpened();
    return !path.isEmpty() && MayReplaceElsewhere(path) && SaveTo(path);
}

// Comments and unknown lines of the file that was opened have no place in the document.
FileCommands::Drop FileCommands::AskDropLines() {
    if (notKept_ == 0) return Drop::Go;
    const ResourceTexts& texts = app_.model.texts;
    const int answer = dialogs_.Ask(window_, {Tone::Warning,
                                              Say(texts, say::kLosesTitle),
                                              Say(texts, say::kLoses, Name(), QString::number(notKept_)),
                                              {},
                                              {Say(texts, say::kSaveWithout), Say(texts, say::kSaveElsewhere),
                                               Say(texts, say::kCancel)}});
    return static_cast<Drop>(answer);
}

bool FileCommands::SaveTo(const QString& path, Over over) {
    const std::string file = Utf8(QDir::toNativeSeparators(path));
    try {
        const auto turn = TakeTurn(app_.folders.userData, file, kLongestTurn);
        session_.Save(file, over);
    } catch (const Error& error) {
        if (OtherPrograms::AreMeantBy(error)) return AskSaveAnyway(error, path);
        Fail(say::kSaveFailed, error);
        return false;
    }
    saved_ = true;
    notKept_ = 0;
    at_ = QTime::currentTime();
    copyOf_.clear();
    open_.Keep(open_.Ask(file));
    Remember(path);
    emit Told(Say(app_.model.texts, say::kWritten, path));
    return true;
}

bool FileCommands::AskSaveAnyway(const Error& error, const QString& path) {
    app_.Record(error);
    switch (others_.AskSave(error, path)) {
        case OtherPrograms::Saving::Anyway:
            return SaveTo(path);
        case OtherPrograms::Saving::Elsewhere:
            return SaveAs();
        case OtherPrograms::Saving::Differences:
            emit DifferencesWanted();
            break;
        case OtherPrograms::Saving::Cancel:
            break;
    }
    return false;
}

bool FileCommands::MayReplaceElsewhere(const QString& path) {
    const auto other = open_.Ask(Utf8(QDir::toNativeSeparators(path))).other;
    return !other || others_.AskReplace(*other, QFileInfo(path).fileName());
}

void FileCommands::SaveCopy() {
    if (!FinishInput()) return;
    const QString name = PathWithout(QStringLiteral("-copy.mrn"));
    const QString path = AskTarget(say::kSaveCopyTitle, name, ConfigurationFilters(), QStringLiteral("mrn"));
    const bool opened = IsOpened(path);
    if (opened) {
        const Drop drop = AskDropLines();
        if (drop == Drop::Elsewhere) return SaveCopy();
        if (drop == Drop::Cancel) return;
    }
    if (path.isEmpty() || (!opened && !MayReplaceElsewhere(path))) return;
    // By its own name, so that the document knows what its file holds from now on.
    const std::string file = opened ? session_.Document().Filename() : Utf8(path);
    WriteFile(path, say::kSaveFailed, [&] {
        const auto turn = TakeTurn(app_.folders.userData, file, kLongestTurn);
        const bool known = opened && QFileInfo::exists(path);
        session_.Document().Save(file, true, known ? Over::WhatIsKnown : Over::Anything);
        if (opened) notKept_ = 0;
    });
}

void FileCommands::PrintListing() {
    if (!FinishInput()) return;
    const ResourceTexts& texts = app_.model.texts;
    const QString path = AskTarget(say::kPrintTitle, PathWithout(QStringLiteral(".pdf")),
                                   {Say(texts, say::kPdfFiles) + QStringLiteral(" (*.pdf)"),
                                    Say(texts, say::kTextFiles) + QStringLiteral(" (*.txt)")},
                                   QStringLiteral("pdf"));
    WriteFile(path, say::kSaveFailed, [&] { WriteListing(app_, session_.Document(), Name(), path); });
}

void FileCommands::GenerateImportFile() {
    if (!FinishInput()) return;
    const ResourceTexts& texts = app_.model.texts;
    const QString path = AskTarget(say::kImportTitle, PathWithout(QStringLiteral(".src")),
                                   {Say(texts, say::kImportFiles) + QStringLiteral(" (*.src)"),
                                    Say(texts, say::kAllFiles) + QStringLiteral(" (*.*)")},
                                   QStringLiteral("src"));
    WriteFile(path, say::kSaveFailed, [&] { session_.Document().GenerateImportFile(Utf8(path)); });
}

bool FileCommands::MayLeave() {
    if (!FinishInput()) return false;
    if (!session_.Document().IsDirty()) return true;
    const ResourceTexts& texts = app_.model.texts;
    const int answer = dialogs_.Ask(
        window_, {Tone::Warning,
                  Say(texts, say::kUnsavedTitle),
                  UnsavedWords(),
                  {},
                  {Say(texts, say::kSaveVerb), Say(texts, say::kDiscard), Say(texts, say::kCancel)}});
    return answer == 1 || (answer == 0 && Save());
}

QString FileCommands::UnsavedWords() const {
    const ResourceTexts& texts = app_.model.texts;
    const std::size_t changes = session_.ChangesSinceSave().Count();
    return changes == 1 ? Say(texts, say::kUnsavedOne, Name())
                        : Say(texts, say::kUnsaved, Name(), QString::number(changes));
}

// A path to write to, with the leave to replace what is there; empty: cancelled.
QString FileCommands::AskTarget(int title, const QString& name, const QStringList& filters,
                                const QString& suffix) {
    const ResourceTexts& texts = app_.model.texts;
    const QString path =
        dialogs_.AskSaveFile(window_, {Say(texts, title), QDir(Folder()).filePath(name), filters, suffix});
    return path.isEmpty() || AskReplace(dialogs_, texts, window_, path) ? path : QString();
}

template <class Write>
void FileCommands::WriteFile(const QString& path, int title, Write&& write) {
    if (path.isEmpty()) return;
    try {
        write();
        emit Told(Say(app_.model.texts, say::kWritten, path));
    } catch (const Error& error) {
        Fail(title, error);
    }
}

void FileCommands::Fail(int title, const Error& error) {
    app_.Record(error);
    TellError(dialogs_, app_.model.texts, window_, Say(app_.model.texts, title), error);
}

void FileCommands::Remember(const QString& path) {
    recent_.Add(Utf8(path));
    app_.settings.LastFolder = Utf8(QFileInfo(path).absolutePath());
    SaveSettings();
    emit RecentChanged();
}

// A list of recent files that cannot be kept stops nobody from working; the user hears of it on closing.
void FileCommands::SaveSettings() {
    try {
        app_.settings.Save();
    } catch (const Error& error) {
        app_.Record(error);
    }
}

QString FileCommands::ProposedName() const {
    if (!session_.Document().IsNew()) return Name();
    if (copyOf_.isEmpty()) return QString::fromLatin1(kNewName);
    return QFileInfo(copyOf_).completeBaseName() + QStringLiteral("-copy.mrn");
}

QString FileCommands::PathWithout(const QString& suffix) const {
    return QFileInfo(ProposedName()).completeBaseName() + suffix;
}

}  // namespace calyx::ui
