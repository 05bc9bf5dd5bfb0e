#pragma once

#include <QTimer>
#include <QWidget>
#include <optional>

#include "ui/document_session.h"
#include "ui/form/item_ref.h"
#include "ui/window/places.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QListView;

namespace calyx::ui {

class LinesModel;

// The lines pane: the parameter lines of the page shown, as they stand in the file or as an indicator of
// some firmware gets them. Which firmware is a matter of the view alone: a download follows the indicator
// that is connected.
class ctlLines : public QWidget {
    Q_OBJECT

  public:
    explicit ctlLines(DocumentSession& session, QWidget* parent = nullptr);

    void SetPlace(const Place& place);
    void SetItem(const std::optional<ItemRef>& item);  // of the place; nothing: all its lines
    void SelectKey(const QString& key);

    // Nothing: as in the file. Otherwise a version prefix, "3.07.".
    std::optional<std::string> Version() const;
    void SetVersion(const std::optional<std::string>& prefix);
    bool Cb2() const;
    void SetCb2(bool on);
    // The version of the connected indicator is marked in the list, and added if it is unknown.
    void SetConnected(const std::optional<std::string>& prefix);

    QString SentText() const;  // the lines without those that are not sent, one a line

  signals:
    void Chosen(const QString& key);
    void TargetChanged();
    void Told(const QString& message);  // for the status line

  private:
    void FillVersions();
    void ShowTarget();
    void Refresh();
    Target ViewTarget() const;
    QString Summary() const;

    DocumentSession& session_;
    const Place* place_ = nullptr;
    std::optional<ItemRef> item_;
    std::optional<std::string> connected_;
    QComboBox* target_;
    QCheckBox* cb2_;
    QListView* list_;
    QLabel* summary_;
    QLabel* empty_;
    LinesModel* model_;
    QTimer refresh_;
};

}  // namespace calyx::ui
