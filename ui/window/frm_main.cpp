#include "ui/window/frm_main.h"

#include <QActionGroup>
#include <QApplication>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QHBoxLayout>
#include <QMenuBar>
#include <QMimeData>
#include <QResizeEvent>
#include <QStatusBar>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>
#include <QUrl>

#include "ui/text.h"
#include "ui/texts.h"
#include "ui/theme/metrics.h"
#include "ui/window/tab_order.h"

namespace calyx::ui {

namespace {
constexpr int kWideEnough = 1000;  // pixels, for the lines beside the page
}

frmMain::frmMain(AppContext& app, Dialogs& dialogs)
    : app_(app),
      dialogs_(dialogs),
      session_(app.model),
      files_(app, session_, dialogs, this),
      desk_(app),
      link_(app, session_, files_, dialogs, desk_, this),
      actions_(new MainActions(app.model.texts, this)),
      navigation_(new ctlNavigation(app.model.texts, app.settings)),
      pages_(new ctlPages(
          session_, {[this](const Question& question) { return dialogs_.Ask(this, question); },
                     app.folders.userData + "streams.ini",
                     [this](const FileQuestion& question) { return dialogs_.AskOpenFile(this, question); },
                     &app.settings, app.ticketTokens})),
      lines_(new ctlLines(session_)),
      panes_(new ctlPanes(session_)),
      find_(new ctlFind(session_, this)),
      status_(new ctlStatus(app.model.texts)),
      fileNote_(new ctlFileNote(app.model.texts)),
      toolBar_(new QToolBar),
      device_(new QToolButton),
      parts_{new QSplitter(Qt::Horizontal), new QSplitter(Qt::Vertical), actions_->viewLines,
             actions_->viewPanes} {
    setObjectName(QStringLiteral("frmMain"));
    setAcceptDrops(true);
    desk_.SetCards([this] { return session_.Document().Value("HARDWARE").value_or(std::string()); });
    MakeWindow();
    MakeBars();
    ConnectCommands();
    ConnectViews();
    ConnectFiles();
    ConnectViewMenu();
    RestoreLayout(app.settings, *this, parts_);
    panes_->Refresh();
    navigation_->Show(*AllPlaces().front());
    ShowTitle();
    ShowFacts();
    ShowSteps();
    FillRecent();
}

// From the navigation into its page, though pages are made long after what stands behind them.
bool frmMain::focusNextPrevChild(bool next) {
    return StepFocus(Parts(), next) || QMainWindow::focusNextPrevChild(next);
}

frmMain::~frmMain() {
    // The views go before the document and the link that they look at.
    desk_.disconnect();
    session_.disconnect();
    for (QWidget* part : findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) delete part;
}

void frmMain::MakeWindow() {
    pages_->AddNote(fileNote_);
    parts_.columns->addWidget(navigation_);
    parts_.columns->addWidget(pages_);
    parts_.columns->addWidget(lines_);
    parts_.columns->setStretchFactor(1, 1);
    parts_.rows->addWidget(parts_.columns);
    parts_.rows->addWidget(panes_);
    parts_.rows->setStretchFactor(0, 1);
    for (QSplitter* splitter : {parts_.columns, parts_.rows}) {
        splitter->setChildrenCollapsible(false);
    }
    setCentralWidget(parts_.rows);
}

void frmMain::MakeBars() {
    auto* menus = new QMenuBar;
    actions_->MakeMenus(*menus);
    auto* top = new QWidget;
    auto* row = new QHBoxLayout(top);
    row->setContentsMargins(metrics::kHalf, metrics::kHalf, metrics::kRelated, metrics::kHalf);
    row->addWidget(menus, 1, Qt::AlignVCenter);
    row->addWidget(find_);
    setMenuWidget(top);

    toolBar_->setObjectName(QStringLiteral("toolBar"));
    toolBar_->setMovable(false);
    toolBar_->setContextMenuPolicy(Qt::PreventContextMenu);
    toolBar_->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    toolBar_->setIconSize({metrics::kIconSmall, metrics::kIconSmall});
    actions_->MakeToolBar(*toolBar_);
    auto* room = new QWidget;
    room->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    toolBar_->addWidget(room);
    device_->setObjectName(QStringLiteral("deviceState"));
    device_->setAutoRaise(true);
    toolBar_->addWidget(device_);
    addToolBar(toolBar_);

    statusBar()->setSizeGripEnabled(false);
    statusBar()->addPermanentWidget(status_, 1);
}

void frmMain::ConnectCommands() {
    const auto on = [this](QAction* action, auto&& run) { connect(action, &QAction::triggered, this, run); };
    on(actions_->fileNew, [this] { files_.New(); });
    on(actions_->fileOpen, [this] { files_.Open(); });
    on(actions_->fileSave, [this] { files_.Save(); });
    on(actions_->fileSaveAs, [this] { files_.SaveAs(); });
    on(actions_->fileSaveCopy, [this] { files_.SaveCopy(); });
    on(actions_->filePrint, [this] { files_.PrintListing(); });
    on(actions_->fileImport, [this] { files_.GenerateImportFile(); });
    on(actions_->fileExit, [this] { close(); });
    on(actions_->editUndo, [this] { Undo(); });
    on(actions_->editRedo, [this] { Redo(); });
    on(actions_->editFind, [this] { find_->Begin(); });
    on(actions_->editDefaults, [this] { RestoreShown(); });
    on(actions_->viewPrevious, [this] { navigation_->Step(-1); });
    on(actions_->viewNext, [this] { navigation_->Step(1); });
    on(actions_->viewPart, [this] { StepPart(Parts(), true); });
    on(actions_->viewPartBack, [this] { StepPart(Parts(), false); });
    on(actions_->linkConnect, [this] { link_.Connect(); });
    on(actions_->linkSimulated, [this] { link_.ConnectSimulated(); });
    on(actions_->linkDisconnect, [this] { link_.Disconnect(); });
    on(actions_->linkSend, [this] { link_.Send(); });
    on(actions_->linkRead, [this] { link_.Read(); });
    on(actions_->linkCompare, [this] { link_.Compare(); });
    on(actions_->linkCalibrate, [this] { link_.Calibrate(); });
    on(actions_->linkTerminal, [this] { link_.Terminal(); });
    on(actions_->linkTraining, [this] { link_.Training(); });
    on(actions_->toolsStream, [this] { link_.SimulateStream(); });
    on(actions_->toolsCheck, [this] { Check(); });
    on(actions_->helpContents, [this] { ShowHelpContents(); });
    on(actions_->helpParameters, [this] { ShowParameterReference(); });
    on(actions_->helpKeyboard, [this] { ShowKeyboard(); });
    on(actions_->helpAbout, [this] { About(); });
    connect(device_, &QToolButton::clicked, actions_->linkConnect, &QAction::trigger);
}

void frmMain::ConnectViews() {
    connect(navigation_, &ctlNavigation::PlaceChosen, this, &frmMain::ShowPlace);
    connect(pages_, &ctlPages::KeyFocused, lines_, &ctlLines::SelectKey);
    connect(pages_, &ctlPages::ShowInLines, this, [this](const QString& key) {
        ShowLines(true);
        lines_->SelectKey(key);
    });
    connect(pages_, &ctlPages::ParameterWanted, this, &frmMain::ShowParameter);
    connect(pages_, &ctlPages::UndoWanted, this, &frmMain::Undo);
    connect(pages_, &ctlPages::ItemShown, lines_, &ctlLines::SetItem);
    connect(lines_, &ctlLines::Chosen, this, [this](const QString& key) { pages_->FocusKey(key); });
    connect(lines_, &ctlLines::Told, status_, &ctlStatus::ShowMessage);
    connect(panes_, &ctlPanes::Chosen, this, &frmMain::ShowParameter);
    connect(panes_, &ctlPanes::Refreshed, this, [this] {
        ShowProblemCounts();
        ShowFacts();
    });
    connect(find_, &ctlFind::Chosen, this, &frmMain::ShowParameter);
    connect(find_, &ctlFind::Left, pages_, &ctlPages::FocusPage);

    connect(&session_, &DocumentSession::GoTo, this, &frmMain::ShowOneOf);
    connect(&session_, &DocumentSession::Told, status_, &ctlStatus::ShowMessage);
    const auto documentChanged = [this] {
        ShowTitle();
        ShowSteps();
    };
    connect(&session_, &DocumentSession::Changed, this, documentChanged);
    connect(&session_, &DocumentSession::Replaced, this, documentChanged);
    connect(&session_, &DocumentSession::Saved, this, documentChanged);
    connect(&desk_, &LinkDesk::Logged, &panes_->Log(), &ctlLinkLog::Append);
    connect(&desk_, &LinkDesk::DeviceChanged, this, &frmMain::ShowDevice);
    connect(&link_, &LinkCommands::Logged, &panes_->Log(), &ctlLinkLog::Append);
    connect(&link_, &LinkCommands::SentChanged, this, &frmMain::ShowFacts);
    connect(&link_, &LinkCommands::CheckWanted, this, &frmMain::Check);
    connect(&link_, &LinkCommands::Compared, pages_, &ctlPages::SetDiffering);
    connect(&session_, &DocumentSession::Replaced, pages_, [pages = pages_] { pages->SetDiffering({}); });
    connect(&link_, &LinkCommands::Chosen, this, &frmMain::ShowParameter);
}

void frmMain::ConnectFiles() {
    connect(&files_, &FileCommands::Told, status_, &ctlStatus::ShowMessage);
    connect(&files_, &FileCommands::RecentChanged, this, [this] {
        FillRecent();
        ShowTitle();
        ShowFacts();
    });
    connect(&files_, &FileCommands::Opened, this, [this] {
        status_->ShowMessage({});  // what it said was of another document
        ShowTitle();
        ShowFacts();
        if (panes_->Report().Count() > 0) ShowPane(&panes_->Report());
    });
    connect(&files_, &FileCommands::FileNoticed, this,
            [this](FileWatch::State state) { fileNote_->Show(state, files_.Name()); });
    connect(&files_, &FileCommands::DifferencesWanted, this, &frmMain::CompareWithFile);
    connect(fileNote_, &ctlFileNote::ReloadWanted, &files_, &FileCommands::Reload);
    connect(fileNote_, &ctlFileNote::DifferencesWanted, this, &frmMain::CompareWithFile);
}

void frmMain::ConnectViewMenu() {
    const auto shows = [](QAction* action, QWidget* widget) {
        connect(action, &QAction::toggled, widget, &QWidget::setVisible);
    };
    shows(actions_->viewToolBar, toolBar_);
    shows(actions_->viewStatusBar, statusBar());
    shows(actions_->viewLines, lines_);
    shows(actions_->viewPanes, panes_);
    actions_->viewToolBar->setChecked(app_.settings.ViewToolbar);
    actions_->viewStatusBar->setChecked(app_.settings.ViewStatusbar);
    connect(actions_->linesShown, &QMenu::aboutToShow, this, &frmMain::FillLinesShown);
    for (QAction* look : actions_->looks->actions()) {
        look->setChecked(look->data().toString() == Shown(app_.settings.Theme));
        connect(look, &QAction::triggered, this, [this, look] { SetLook(look->data().toString()); });
    }
}

// Closing waits for an exchange with the indicator to end; what has begun must not lose its ground.
void frmMain::closeEvent(QCloseEvent* event) {
    if (desk_.Busy()) {
        event->ignore();
        Tell(dialogs_, app_.model.texts, this, Tone::Information, Text(say::kBusyTitle), Text(say::kBusy));
        return;
    }
    if (!files_.MayLeave()) return event->ignore();
    KeepLayout(app_.settings, *this, parts_);
    app_.settings.ViewToolbar = actions_->viewToolBar->isChecked();
    app_.settings.ViewStatusbar = actions_->viewStatusBar->isChecked();
    try {
        app_.settings.Save();
    } catch (const Error& error) {
        app_.Record(error);
        TellError(dialogs_, app_.model.texts, this, Text(say::kSettingsTitle), error);
    }
    event->accept();
}

// Asked for, it is shown on a narrow window too.
void frmMain::ShowLines(bool shown) {
    actions_->viewLines->setChecked(shown);
    lines_->setVisible(shown);
}

void frmMain::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    const int before = event->oldSize().width(), now = event->size().width();
    const bool crossed = before < 0 || (before < kWideEnough) != (now < kWideEnough);
    if (crossed) lines_->setVisible(actions_->viewLines->isChecked() && now >= kWideEnough);
}

bool frmMain::event(QEvent* event) {
    // The system has gone over to another look. Later, since it is still on its way through the windows.
    if (event->type() == QEvent::ThemeChange && app_.settings.Theme.empty())
        QTimer::singleShot(0, this, [this] { SetLook({}); });
    if (event->type() == QEvent::WindowActivate) {
        files_.LookAtFile();
        ShowTitle();  // the other program that had the file open may have ended
    }
    return QMainWindow::event(event);
}

void frmMain::dragEnterEvent(QDragEnterEvent* event) {
    for (const QUrl& url : event->mimeData()->urls()) {
        if (url.isLocalFile()) return event->acceptProposedAction();
    }
}

void frmMain::dropEvent(QDropEvent* event) {
    QStringList files;
    for (const QUrl& url : event->mimeData()->urls()) {
        if (url.isLocalFile()) files += url.toLocalFile();
    }
    event->acceptProposedAction();
    // Later, since a question would hold up the program that the files come from.
    QTimer::singleShot(0, this, [this, files] { OpenDropped(files); });
}

}  // namespace calyx::ui
