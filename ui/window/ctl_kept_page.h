#pragma once

#include <QWidget>

#include "ui/document_session.h"
#include "ui/window/places.h"

class QLabel;
class QStackedWidget;
class QTreeView;

namespace calyx::ui {

class KeptModel;

// The page of a place whose parameters have no editor of their own: its lines as they are kept, each value
// to be changed in place.
class ctlKeptPage : public QWidget {
    Q_OBJECT

  public:
    ctlKeptPage(DocumentSession& session, const Place& place);

    bool FocusKey(const QString& key);

  signals:
    void KeyFocused(const QString& key);
    void OpenWanted();
    void ReadWanted();

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    void BecomeStale();
    void Refresh();
    QWidget* MakeEmptyState();

    DocumentSession& session_;
    const Place& place_;
    KeptModel* model_;
    QTreeView* view_;
    QLabel* count_;
    QStackedWidget* stack_;
    bool stale_ = true;  // a page out of sight does not follow every edit
};

}  // namespace calyx::ui
