#pragma once

#include <QWidget>
#include <map>

#include "ui/window/page_factory.h"

class QLabel;
class QStackedWidget;

namespace calyx::ui {

// The middle of the window: a heading and the page of the chosen place. Pages are made when they are first
// shown.
class ctlPages : public QWidget {
    Q_OBJECT

  public:
    explicit ctlPages(DocumentSession& session);

    void Show(const Place& place);
    // Shows the field of a key on the present page. False: it has none.
    bool FocusKey(const QString& key);
    void FocusPage();
    void SetDiffering(std::set<std::string> keys);  // in capitals; empty: not compared

  signals:
    void KeyFocused(const QString& key);
    void ShowInLines(const QString& key);
    void OpenWanted();
    void ReadWanted();

  private:
    const Page& PageOf(const Place& place);

    DocumentSession& session_;
    const Place* place_ = nullptr;
    std::map<const Place*, Page> pages_;
    std::set<std::string> differing_;
    QLabel* heading_;
    QStackedWidget* stack_;
};

}  // namespace calyx::ui
