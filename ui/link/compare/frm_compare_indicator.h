#pragma once

#include <QDialog>
#include <memory>
#include <optional>

#include "app/context.h"
#include "comm/safe_send.h"
#include "ui/dialogs/dialogs.h"
#include "ui/document_session.h"
#include "ui/link/link_desk.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;

namespace calyx::ui {

class ctlSendLines;
class ElapsedLabel;

// The document against the connected indicator, and the safe way to send what differs: what the indicator
// holds is kept in a dated file first, every line is looked at, sent and read back, and what was there can be
// put back. A run that the link broke off goes on from here as well.
class frmCompareIndicator : public QDialog, private IDownloadEvents, private IUploadEvents {
    Q_OBJECT

  public:
    frmCompareIndicator(AppContext& app, DocumentSession& session, LinkDesk& desk, Dialogs& dialogs,
                        const QString& documentName, QWidget* parent);
    ~frmCompareIndicator() override;

    // One of these once the dialog is open; they return when that is done.
    void Read();
    void ResumePending();
    void RestorePending();

    void reject() override;

    static std::string JournalFile(const AppContext& app) { return app.folders.userData + "send.journal"; }

  signals:
    void Compared(const std::set<std::string>& differing);  // keys, in capitals
    void Ended(const calyx::DownloadReport& report, const std::vector<std::string>& accepted);
    void Chosen(const QString& key);

  private:
    enum class State { Idle, Reading, Sending, Paused };

    void MakeControls();
    QWidget* MakeHead();
    QWidget* MakeProgress();
    QLayout* MakeButtons();
    void MakeParts();
    void MakePlan();
    void Send();
    void Pause();
    void Resume();
    void Restore();
    void Abort();
    template <class Work>
    void Run(bool restores, Work&& work);
    void ShowEnd(const SafeSendReport& report, bool restores);
    void SetState(State state);
    void ShowButtons();
    void ShowCounts();
    void ShowFilter();
    void Fail(const Error& error);
    bool MakeBackupFolder();
    DownloadOptions Options() const;
    QString Text(int number) const;
    void Note(const QString& words, bool problem);

    void Status(const std::string& text) override;
    void Line(const std::string& line, int number, int total) override;
    void Done(LineFate fate) override;
    void Notice(const std::string& title, const std::string& text) override;
    void Received(std::size_t characters) override;
    bool Cancelled() override { return cancelled_; }

    AppContext& app_;
    DocumentSession& session_;
    LinkDesk& desk_;
    Dialogs& dialogs_;
    QString documentName_;
    std::unique_ptr<CSafeSend> sending_;
    std::optional<SendPlan> plan_;
    ctlSendLines* lines_;
    QLabel *note_, *backup_, *current_;
    QPushButton* parts_;
    QComboBox* show_;
    QLineEdit* filter_;
    QProgressBar* progress_;
    ElapsedLabel* elapsed_;
    QPushButton *send_, *pause_, *abort_, *restore_, *readAgain_, *close_;
    unsigned mask_;
    State state_ = State::Idle;
    bool cancelled_ = false;
    bool lost_ = false;      // the run waits for the link
    bool sentOnce_ = false;  // there is something to put back
};

}  // namespace calyx::ui
