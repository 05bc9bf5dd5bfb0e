#pragma once

#include <QAction>
#include <QList>
#include <QMenuBar>
#include <QToolBar>

#include "model/language/resource_texts.h"
#include "ui/theme/icons.h"

class QActionGroup;
class QMenu;
class QToolButton;

namespace calyx::ui {

// The commands of the main window, its menus and its tool bar. What they do is the window's business. No
// command is ever greyed: one that cannot run says why when it is chosen.
class MainActions : public QObject {
    Q_OBJECT

  public:
    MainActions(const ResourceTexts& texts, QObject* parent);

    void MakeMenus(QMenuBar& bar);
    void MakeToolBar(QToolBar& bar);
    const QList<QAction*>& All() const { return all_; }

    QAction *fileNew, *fileOpen, *fileSave, *fileSaveAs, *fileSaveCopy, *filePrint, *fileImport, *fileExit;
    QAction *editUndo, *editRedo, *editFind, *editDefaults;
    QAction *viewToolBar, *viewStatusBar, *viewLines, *viewPanes, *viewPrevious, *viewNext, *viewPart,
        *viewPartBack;
    QAction *linkConnect, *linkSimulated, *linkDisconnect, *linkSend, *linkRead, *linkCompare, *linkCalibrate,
        *linkTerminal, *linkTraining;
    QAction *toolsCheck, *toolsStream;
    QAction *helpContents, *helpParameters, *helpKeyboard, *helpAbout;

    QMenu* recent = nullptr;      // filled by the window
    QMenu* linesShown = nullptr;  // filled by the window
    QActionGroup* looks;          // their data is the word of the setting `Theme`

  private:
    QAction* Make(const char* name, int text, const QKeySequence& keys = {});
    QAction* Make(const char* name, int text, const QKeySequence& keys, IconName icon);
    QAction* MakeToggle(const char* name, int text);
    void MakeLooks();
    QMenu* AddMenu(QMenuBar& bar, int text, const char* name) const;

    const ResourceTexts& texts_;
    QList<QAction*> all_;
};

}  // namespace calyx::ui
