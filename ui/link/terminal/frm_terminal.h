#pragma once

#include <QDialog>
#include <QStringList>
#include <array>

#include "app/context.h"
#include "comm/macro_keys.h"
#include "comm/send_file.h"
#include "ui/dialogs/dialogs.h"
#include "ui/document_session.h"
#include "ui/link/link_desk.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;

namespace calyx::ui {

class ctlTerminalLog;

// The terminal monitor: lines typed by hand, macro keys and files go to the connected indicator, and all that
// went either way is listed. It stays open beside the window.
class frmTerminal : public QDialog, private CSendFile::IEvents {
    Q_OBJECT

  public:
    frmTerminal(AppContext& app, DocumentSession& session, LinkDesk& desk, Dialogs& dialogs, QWidget* parent);

    void reject() override;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QLayout* MakeHead();
    QLayout* MakeMacros();
    QLayout* MakeLine();
    QLayout* MakeButtons();
    void MakeCompletion();
    void SendTyped();
    void SendText(const std::string& text, bool halt);
    void SendChosenFile();
    void SaveLog();
    void PressMacro(std::size_t number);
    void EditMacro(std::size_t number);
    void ShowMacros();
    void Recall(int step);
    void ShowEnd(const CSendFile::Report& report);
    void SetSending(bool on);
    void Note(const QString& words, bool problem);
    QString Text(int number) const;

    void Line(const std::string& line, std::size_t number, std::size_t total) override;
    void Answered(const CSendFile::Answer& answer) override;

    AppContext& app_;
    DocumentSession& session_;
    LinkDesk& desk_;
    Dialogs& dialogs_;
    const std::string macroFile_;
    MacroKeys macros_;
    CSendFile sending_;
    ctlTerminalLog* log_;
    QLineEdit *line_, *filter_;
    QCheckBox *hex_, *halt_;
    QLabel* note_;
    QProgressBar* progress_;
    QPushButton *send_, *file_, *cancel_;
    std::array<QPushButton*, 12> keys_{};
    QStringList history_;
    int recalled_ = 0;  // place in the history; its size: the line that is being typed
    bool works_ = false;
};

}  // namespace calyx::ui
