#pragma once

#include <QTime>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "app/context.h"
#include "comm/download.h"
#include "comm/upload.h"
#include "ui/dialogs/dialogs.h"
#include "ui/document_session.h"
#include "ui/files/file_commands.h"
#include "ui/link/link_desk.h"

namespace calyx::ui {

class frmCompareIndicator;

// The commands of the Indicator menu, with their dialogs. One that cannot run says why and offers the way
// out.
class LinkCommands : public QObject {
    Q_OBJECT

  public:
    LinkCommands(AppContext& app, DocumentSession& session, FileCommands& files, Dialogs& dialogs,
                 LinkDesk& desk, QWidget* window);

    void Connect();
    void ConnectSimulated();
    void Disconnect();
    void Send();
    void Read();
    void Compare();
    void Calibrate();
    void Terminal();
    void SimulateStream();
    void Training();

    // When something of the document was last sent to this indicator; how many of the lines sent are
    // others now, and how many it would get and never got (parts that were not chosen, lines refused).
    struct Sent {
        QTime at;
        std::size_t changesSince = 0;
        std::size_t notSent = 0;
    };
    std::optional<Sent> LastSent() const;

  signals:
    void Logged(const QString& line);
    void SentChanged();
    void CheckWanted();
    void Compared(const std::set<std::string>& differing);  // keys, in capitals
    void Chosen(const QString& key);                        // in a list of differences or of cards

  private:
    bool Free();
    void OpenConnectDialog(std::function<void()> next);
    bool OpenSimulated();
    void AfterConnect();
    void WithConnection(const std::function<void()>& next);
    void SendNow();
    void ReadNow();
    void CompareNow();
    frmCompareIndicator* OpenCompare();
    void OfferPending();
    void OfferPendingSend(const std::function<void()>& otherwise);
    void GoOnWithPending(bool restore);
    void OfferPendingCalibration(const std::function<void()>& otherwise);
    std::optional<UploadReport> FetchDump();
    void OpenRead(const QString& path);
    void EndOfDownload(const DownloadReport& report, const std::vector<std::string>& accepted);
    void ForgetSent();
    void Fail(const Error& error);
    QString Text(int number) const;

    AppContext& app_;
    DocumentSession& session_;
    FileCommands& files_;
    Dialogs& dialogs_;
    LinkDesk& desk_;
    QWidget* window_;
    QTime sentAt_;
    std::map<std::string, std::string> sent_;  // values that the indicator has accepted, by key in capitals
    std::set<std::string> differing_;          // keys, as last told
};

}  // namespace calyx::ui
