#pragma once

#include <QDialog>
#include <QElapsedTimer>
#include <array>
#include <string>
#include <vector>

#include "app/context.h"
#include "comm/download.h"
#include "comm/send_journal.h"
#include "ui/dialogs/dialogs.h"
#include "ui/document_session.h"
#include "ui/link/link_desk.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;

namespace calyx::ui {

class ElapsedLabel;

// The download dialog: chooses what to send, sends it, shows how far it is, and offers the lines that the
// indicator did not accept. The choice is kept in the settings; where the link is lost, the position is kept
// in the journal of runs, to go on from there.
class frmDownload : public QDialog, private IDownloadEvents {
    Q_OBJECT

  public:
    // `documentName` is the configuration's for people, kept with the position of a run.
    frmDownload(AppContext& app, DocumentSession& session, LinkDesk& desk, Dialogs& dialogs,
                QString documentName, QWidget* parent);

    bool Downloading() const { return downloading_; }
    void reject() override;

    // The lines of the last run that the indicator has accepted, in their order.
    const std::vector<std::string>& Accepted() const { return accepted_; }

  signals:
    void Ended(const calyx::DownloadReport& report);

  private:
    struct Option {
        QCheckBox* box;
        unsigned bit;
        bool possible;  // the document has something of it
    };

    void MakeOptions();
    QWidget* MakeProgramRow();
    QWidget* MakeProgress();
    void Connect();

    void cmdStart_Click();
    void cmdAbort_Click();
    void cmdBrowse_Click();
    bool MayReplace();  // a run that was broken off, by this one
    DownloadReport Run(const DownloadOptions& options);
    DownloadReport RunJournaled(const DownloadOptions& options);
    void KeepAccepted(const DownloadReport& report);
    void ShowDownloadErrors(const DownloadReport& report);
    void InitDownloadOptions();
    void SaveDownloadOptions();
    void EnableControls();
    unsigned Mask() const;
    bool Chosen(unsigned bit) const;

    void Status(const std::string& text) override;
    void Line(const std::string& line, int number, int total) override;
    void Errors(const std::string& text) override;
    void Notice(const std::string& title, const std::string& text) override;

    AppContext& app_;
    DocumentSession& session_;
    LinkDesk& desk_;
    Dialogs& dialogs_;
    QString documentName_;
    SendJournal journal_;
    JournaledEvents events_;
    CDownload download_;
    std::array<Option, 6> options_{};
    QLineEdit* txtFilename_;
    QPushButton* cmdBrowse_;
    QLabel* lblStatus_;
    QLabel* txtCurrentCommand_;
    QLabel* lblDownloadErrors_;
    QProgressBar* progress_;
    ElapsedLabel* elapsed_;
    QPushButton* cmdStart_;
    QPushButton* cmdAbort_;
    QPushButton* cmdClose_;
    QElapsedTimer shown_;  // since the line was shown last
    std::vector<std::string> accepted_;
    bool downloading_ = false;
};

}  // namespace calyx::ui
