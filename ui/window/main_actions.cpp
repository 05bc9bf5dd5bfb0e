#include "ui/window/main_actions.h"

#include <QActionGroup>
#include <QMenu>
#include <QToolButton>

#include "ui/items/items_texts.h"
#include "ui/link/calibration/wizard_texts.h"
#include "ui/link/terminal/terminal_texts.h"
#include "ui/link/tools/tool_texts.h"
#include "ui/text.h"
#include "ui/texts.h"

namespace calyx::ui {

MainActions::MainActions(const ResourceTexts& texts, QObject* parent)
    : QObject(parent), looks(new QActionGroup(this)), texts_(texts) {
    using Keys = QKeySequence;
    fileNew = Make("fileNew", say::kNew, Keys::New, IconName::New);
    fileOpen = Make("fileOpen", say::kOpen, Keys::Open, IconName::Open);
    fileSave = Make("fileSave", say::kSave, Keys::Save, IconName::Save);
    fileSaveAs = Make("fileSaveAs", say::kSaveAs, Keys(QStringLiteral("Ctrl+Shift+S")));
    fileSaveCopy = Make("fileSaveCopy", say::kSaveCopy);
    filePrint = Make("filePrint", say::kPrintTo, Keys::Print);
    fileImport = Make("fileImport", say::kImportFile);
    fileExit = Make("fileExit", say::kExit, Keys(QStringLiteral("Ctrl+Q")));
    editUndo = Make("editUndo", say::kUndo, Keys(QStringLiteral("Ctrl+Z")), IconName::Undo);
    editRedo = Make("editRedo", say::kRedo, {}, IconName::Redo);
    editRedo->setShortcuts({Keys(QStringLiteral("Ctrl+Y")), Keys(QStringLiteral("Ctrl+Shift+Z"))});
    editFind = Make("editFind", say::kFind, {}, IconName::Find);
    editFind->setShortcuts({Keys(QStringLiteral("Ctrl+K")), Keys(QStringLiteral("Ctrl+F"))});
    editDefaults = Make("editDefaults", items_text::kMenuRestore, Keys(QStringLiteral("Ctrl+Shift+D")));
    viewToolBar = MakeToggle("viewToolBar", say::kToolBar);
    viewStatusBar = MakeToggle("viewStatusBar", say::kStatusBar);
    viewLines = MakeToggle("viewLines", say::kLinesPane);
    viewPanes = MakeToggle("viewPanes", say::kBottomPanes);
    viewPrevious = Make("viewPrevious", say::kPreviousPage, Keys(QStringLiteral("Ctrl+PgUp")));
    viewNext = Make("viewNext", say::kNextPage, Keys(QStringLiteral("Ctrl+PgDown")));
    viewPart = Make("viewPart", say::kNextPart, Keys(Qt::Key_F6));
    viewPartBack = Make("viewPartBack", say::kPreviousPart, Keys(Qt::SHIFT | Qt::Key_F6));
    linkConnect = Make("linkConnect", say::kConnect, {}, IconName::Connect);
    linkSimulated = Make("linkSimulated", say::kSimulated);
    linkDisconnect = Make("linkDisconnect", say::kDisconnect);
    linkSend = Make("linkSend", say::kSend, {}, IconName::Send);
    linkSend->setShortcuts({Keys(QStringLiteral("Ctrl+Return")), Keys(QStringLiteral("Ctrl+Enter"))});
    linkRead = Make("linkRead", say::kRead, {}, IconName::Read);
    linkCompare = Make("linkCompare", say::kCompare, {}, IconName::Compare);
    linkCalibrate = Make("linkCalibrate", wizard_text::kMenu);
    linkTerminal = Make("linkTerminal", terminal_text::kMenu);
    linkTraining = Make("linkTraining", tool_text::kTrainingMenu);
    toolsStream = Make("toolsStream", tool_text::kStreamMenu);
    toolsCheck = Make("toolsCheck", say::kCheck, Keys(QStringLiteral("F5")), IconName::Problem);
    helpContents = Make("helpContents", say::kContents, Keys(Qt::Key_F1));
    helpParameters = Make("helpParameters", say::kParameters);
    helpKeyboard = Make("helpKeyboard", say::kKeyboard);
    helpAbout = Make("helpAbout", say::kAbout, {}, IconName::Info);
    MakeLooks();
}

QAction* MainActions::Make(const char* name, int text, const QKeySequence& keys) {
    auto* action = new QAction(Say(texts_, text), this);
    action->setObjectName(QLatin1String(name));
    action->setShortcut(keys);
    QString plain = action->text();
    action->setIconText(plain.remove(QLatin1Char('&')));
    action->setToolTip(PlainCaption(plain));
    all_.append(action);
    return action;
}

QAction* MainActions::Make(const char* name, int text, const QKeySequence& keys, IconName icon) {
    QAction* action = Make(name, text, keys);
    action->setIcon(Icon(icon));
    return action;
}

QAction* MainActions::MakeToggle(const char* name, int text) {
    QAction* action = Make(name, text);
    action->setCheckable(true);
    action->setChecked(true);
    return action;
}

void MainActions::MakeLooks() {
    const struct {
        const char* word;  // as the setting holds it
        int text;
    } all[] = {{"", say::kThemeSystem},
               {"light", say::kThemeLight},
               {"dark", say::kThemeDark},
               {"contrast", say::kThemeContrast}};
    for (const auto& look : all) {
        auto* action = new QAction(Say(texts_, look.text), looks);
        action->setCheckable(true);
        action->setData(QString::fromLatin1(look.word));
    }
}

QMenu* MainActions::AddMenu(QMenuBar& bar, int text, const char* name) const {
    QMenu* menu = bar.addMenu(Say(texts_, text));
    menu->setObjectName(QLatin1String(name));
    return menu;
}

void MainActions::MakeMenus(QMenuBar& bar) {
    QMenu* file = AddMenu(bar, say::kMenuFile, "menuFile");
    file->addActions({fileNew, fileOpen});
    recent = file->addMenu(Say(texts_, say::kRecent));
    recent->setObjectName(QStringLiteral("menuRecent"));
    file->addSeparator();
    file->addActions({fileSave, fileSaveAs, fileSaveCopy});
    file->addSeparator();
    file->addActions({filePrint, fileImport});
    file->addSeparator();
    file->addAction(fileExit);

    QMenu* edit = AddMenu(bar, say::kMenuEdit, "menuEdit");
    edit->addActions({editUndo, editRedo});
    edit->addSeparator();
    edit->addAction(editFind);
    edit->addSeparator();
    edit->addAction(editDefaults);

    QMenu* view = AddMenu(bar, say::kMenuView, "menuView");
    view->addActions({viewPrevious, viewNext, viewPart, viewPartBack});
    view->addSeparator();
    view->addActions({viewToolBar, viewStatusBar, viewLines, viewPanes});
    view->addSeparator();
    linesShown = view->addMenu(Say(texts_, say::kLinesAs));
    linesShown->setObjectName(QStringLiteral("menuLinesShown"));
    QMenu* look = view->addMenu(Say(texts_, say::kTheme));
    look->setObjectName(QStringLiteral("menuLook"));
    look->addActions(looks->actions());

    QMenu* indicator = AddMenu(bar, say::kMenuIndicator, "menuIndicator");
    indicator->addActions({linkConnect, linkSimulated, linkTraining, linkDisconnect});
    indicator->addSeparator();
    indicator->addActions({linkSend, linkRead, linkCompare});
    indicator->addSeparator();
    indicator->addActions({linkCalibrate, linkTerminal});

    AddMenu(bar, say::kMenuTools, "menuTools")->addActions({toolsCheck, toolsStream});
    AddMenu(bar, say::kMenuHelp, "menuHelp")
        ->addActions({helpContents, helpParameters, helpKeyboard, helpAbout});
}

void MainActions::MakeToolBar(QToolBar& bar) {
    bar.addActions({fileNew, fileOpen, fileSave});
    bar.addSeparator();
    bar.addActions({editUndo, editRedo});
    bar.addSeparator();
    bar.addAction(linkConnect);
    if (auto* button = qobject_cast<QToolButton*>(bar.widgetForAction(linkConnect))) {
        auto* menu = new QMenu(button);
        menu->addActions({linkConnect, linkSimulated, linkTraining, linkDisconnect});
        button->setMenu(menu);
        button->setPopupMode(QToolButton::MenuButtonPopup);
    }
    bar.addActions({linkSend, linkRead, linkCompare});
}

}  // namespace calyx::ui
