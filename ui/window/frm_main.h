#pragma once

#include <QMainWindow>
#include <array>

#include "app/context.h"
#include "ui/dialogs/dialogs.h"
#include "ui/document_session.h"
#include "ui/files/file_commands.h"
#include "ui/link/link_commands.h"
#include "ui/link/link_desk.h"
#include "ui/panes/ctl_lines.h"
#include "ui/panes/ctl_panes.h"
#include "ui/text.h"
#include "ui/window/ctl_file_note.h"
#include "ui/window/ctl_find.h"
#include "ui/window/ctl_navigation.h"
#include "ui/window/ctl_pages.h"
#include "ui/window/ctl_status.h"
#include "ui/window/main_actions.h"
#include "ui/window/window_layout.h"

class QToolButton;

namespace calyx::ui {

// The main window: one document, one link.
class frmMain : public QMainWindow {
    Q_OBJECT

  public:
    // What is handed in outlives the window. `dialogs` asks in the user's face, or in a test's.
    frmMain(AppContext& app, Dialogs& dialogs);
    ~frmMain() override;

    DocumentSession& Session() { return session_; }
    FileCommands& Files() { return files_; }
    LinkDesk& Desk() { return desk_; }
    ctlPanes& Panes() { return *panes_; }

    // Shows the field of a parameter, its line, and what page they are on.
    void ShowParameter(const QString& key);
    // Two configuration files side by side.
    void CompareFiles(const QString& before, const QString& after);
    // The document beside its file as it is now.
    void CompareWithFile();

  protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    bool event(QEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void MakeWindow();
    void MakeBars();
    void ConnectCommands();
    void ConnectViews();
    void ConnectViewMenu();

    std::array<QWidget*, 5> Parts() const { return {navigation_, pages_, lines_, panes_, find_}; }
    void ShowPlace(const Place& place);
    void ShowTitle();
    void ShowFacts();
    void ShowSteps();
    void ShowProblemCounts();
    void ShowPane(QWidget* pane);
    void FillRecent();
    void FillLinesShown();
    void SetLook(const QString& word);
    void Undo();
    void Redo();
    void RestoreShown();
    void Check();
    void ShowHelpContents();
    void About();
    void ShowDevice();
    void ShowParameterReference();
    void ShowKeyboard();
    void OpenDropped(const QStringList& files);
    void ConnectFiles();
    void ShowOneOf(const QStringList& keys);
    void ShowLines(bool shown);
    QString FileFact() const;
    QString DeviceFact() const;
    QString Text(int number) const { return Say(app_.model.texts, number); }

    AppContext& app_;
    Dialogs& dialogs_;
    DocumentSession session_;
    FileCommands files_;
    LinkDesk desk_;
    LinkCommands link_;
    MainActions* actions_;
    ctlNavigation* navigation_;
    ctlPages* pages_;
    ctlLines* lines_;
    ctlPanes* panes_;
    ctlFind* find_;
    ctlStatus* status_;
    ctlFileNote* fileNote_;
    QToolBar* toolBar_;
    QToolButton* device_;
    WindowParts parts_;
};

}  // namespace calyx::ui
