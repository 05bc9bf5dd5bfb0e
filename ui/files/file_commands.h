#pragma once

#include <QObject>
#include <QString>
#include <QTime>

#include "app/context.h"
#include "app/open_files.h"
#include "app/recent_files.h"
#include "ui/dialogs/dialogs.h"
#include "ui/document_session.h"
#include "ui/files/file_watch.h"
#include "ui/files/other_programs.h"

namespace calyx::ui {

// The commands of the File menu, with their questions and messages.
class FileCommands : public QObject {
    Q_OBJECT

  public:
    FileCommands(AppContext& app, DocumentSession& session, Dialogs& dialogs, QWidget* window);

    void New();
    void Open();
    // False when it was not opened, for whatever reason; the user was told. `anyway` skips the checks
    // without a question, and asks nothing about other programs.
    bool OpenPath(const QString& path, bool anyway = false);
    // Reads the document's file again, after a question where that would lose something.
    void Reload();
    bool Save();  // false: not saved
    bool SaveAs();
    void SaveCopy();
    void PrintListing();
    void GenerateImportFile();

    // Whether the document may be left: it has no changes, or the user has saved or discarded them.
    bool MayLeave();
    // Takes what is being typed. False: it cannot be taken, and the user wants to correct it first.
    bool FinishInput();

    QString Name() const;  // of the file, without its folder
    bool IsOpenElsewhere() const { return open_.IsShared(); }
    void LookAtFile();                         // what other programs do with it
    QString Folder() const;                    // where file dialogs begin
    QStringList ConfigurationFilters() const;  // of file dialogs
    QStringList Recent() const;
    const QTime& At() const { return at_; }  // of the last save, or of the opening
    bool SavedSinceOpened() const { return saved_; }

  signals:
    void RecentChanged();
    void Told(const QString& message);
    void Opened();
    void FileNoticed(calyx::ui::FileWatch::State state);
    void DifferencesWanted();  // between the document and its file as it is now

  private:
    using Over = CIndicator::Over;
    bool Read(const std::string& file, bool anyway, bool asCopy);
    bool SaveTo(const QString& path, Over over = Over::Anything);
    bool AskSaveAnyway(const Error& error, const QString& path);
    bool MayReplaceElsewhere(const QString& path);
    QString ProposedName() const;
    bool SaveOverOpened();
    bool IsOpened(const QString& path) const;  // the file that the document came from
    enum class Drop { Go, Elsewhere, Cancel };
    Drop AskDropLines();
    int AskOpenAnyway(const Error& error);
    QString UnsavedWords() const;
    QString AskTarget(int title, const QString& name, const QStringList& filters, const QString& suffix);
    void Fail(int title, const Error& error);
    template <class Write>
    void WriteFile(const QString& path, int title, Write&& write);
    void Remember(const QString& path);
    void SaveSettings();
    QString PathWithout(const QString& suffix) const;

    AppContext& app_;
    CMRU recent_;
    DocumentSession& session_;
    Dialogs& dialogs_;
    QWidget* window_;
    OpenFiles open_;
    OtherPrograms others_;
    FileWatch watch_;
    QString copyOf_;  // name of the file that a new document is a copy of
    QTime at_;
    bool saved_ = false;
    std::size_t notKept_ = 0;  // lines of the opened file that saving over it would drop
};

}  // namespace calyx::ui
