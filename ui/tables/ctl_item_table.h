#pragma once

#include <QWidget>
#include <string>
#include <string_view>
#include <vector>

#include "model/language/change_set.h"
#include "ui/document_session.h"
#include "ui/tables/ctl_item_grid.h"

namespace calyx::ui {

// Items of one kind in a grid, with what can be done with whole items: copies go to the clipboard as lines,
// pasting and clearing are one step of undo each.
class ctlItemTable : public QWidget {
    Q_OBJECT

  public:
    // Numbers of resource texts.
    struct Texts {
        int name = 0;       // of the grid
        int copied = 0;     // {1} how many
        int pasteStep = 0;  // {1} how many, {2} the first number
        int noRoom = 0;     // {1} how many, {2} the first number
        int nothingToPaste = 0;
        int notAsGiven = 0;  // {1} lines
        int clearStep = 0;   // {1} number, or how many
        int clearSeveralStep = 0;
        int nothingToClear = 0;
    };

    ctlItemGrid& Grid() const { return *grid_; }
    // Makes the row of an item seen and goes to it.
    virtual void GoTo(int number) { grid_->GoTo(number); }
    // The item of a key; 0: none. Usually the number behind "#".
    virtual int NumberOf(const QString& key) const;

  signals:
    void OpenWanted(int number);
    void ParameterWanted(const QString& key);

  protected:
    struct Pasted {
        int count = 0;
        bool fits = true;
        std::vector<Change> changes;
        std::size_t notAsGiven = 0;
    };

    ctlItemTable(DocumentSession& session, const Texts& texts);
    // By the constructor of the table itself, once it can say its rows. The grid is given a place by it.
    void MakeGrid(QStringList headings, GridSource source);

    virtual std::string Lines(const std::vector<int>& numbers, bool own) const = 0;
    virtual Pasted Read(std::string_view lines, int first) const = 0;
    virtual std::vector<Change> Cleared(int number) const = 0;

    // Open, copy and paste; clear, where the table has no command of its own for it.
    QWidget* MakeButtons(bool withClear);
    // The first broken rule of an item; empty: none.
    QString ProblemOf(int number) const;
    QAction* AddCommand(int text, const char* name, const QKeySequence& keys,
                        const std::function<void()>& act);
    bool Apply(const std::vector<Change>& changes, const std::string& step);
    DocumentSession& Session() const { return session_; }
    const ResourceTexts& Words() const { return session_.Context().texts; }

  private:
    void Copy();
    void Paste();
    void Clear();
    bool HoldsItems() const;

    DocumentSession& session_;
    const Texts texts_;
    ctlItemGrid* grid_ = nullptr;
    std::vector<QAction*> commands_;
};

}  // namespace calyx::ui
