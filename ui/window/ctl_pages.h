#pragma once

#include <QWidget>
#include <map>

#include "ui/window/ctl_note.h"
#include "ui/window/page_factory.h"

class QLabel;
class QStackedWidget;

namespace calyx::ui {

// The middle of the window: a heading and the page of the chosen place. Pages are made when they are first
// shown.
class ctlPages : public QWidget {
    Q_OBJECT

  public:
    ctlPages(DocumentSession& session, PageTools tools);

    void AddNote(QWidget* note);  // above heading and page
    void Show(const Place& place);
    // Shows the field of a key on the present page. False: it has none.
    bool FocusKey(const QString& key);
    void FocusPage();
    const Place* ShownPlace() const { return place_; }  // nothing before Show
    std::optional<ItemRef> ShownItem();                 // of the present page
    void SetDiffering(std::set<std::string> keys);      // in capitals; empty: not compared

  signals:
    void KeyFocused(const QString& key);
    void ShowInLines(const QString& key);
    void ParameterWanted(const QString& key);
    void UndoWanted();
    void ItemShown(const std::optional<calyx::ui::ItemRef>& item);

  private:
    const Page& PageOf(const Place& place);
    void ShowDivider();

    DocumentSession& session_;
    const PageTools tools_;
    const Place* place_ = nullptr;
    std::map<const Place*, Page> pages_;
    std::set<std::string> differing_;
    QLabel* heading_;
    QWidget* divider_;  // seen when the page is scrolled below the heading
    ctlNote* note_;
    QStackedWidget* stack_;
};

}  // namespace calyx::ui
