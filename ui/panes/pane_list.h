#pragma once

#include <QStackedWidget>
#include <QStringList>
#include <vector>

class QLabel;
class QTreeView;

namespace calyx::ui {

class PaneModel;

// A list in a pane: rows of words, each of which may lead to a parameter or be acted upon. Without rows
// it says what it is for.
class PaneList : public QStackedWidget {
    Q_OBJECT

  public:
    struct Row {
        QStringList cells = {};
        QString key = {};  // parameter that the row is about; empty: none
        QString action =
            {};  // caption of what can be done with the row, in a column of its own; empty: nothing
        bool problem = false;
        friend bool operator==(const Row&, const Row&) = default;
    };

    // `name` is for screen readers. The column `wide` takes the room that the others leave.
    PaneList(const QString& name, QStringList headings, int wide, QWidget* parent = nullptr);

    void SetEmptyText(const QString& text);
    // The row that was current stays so, by its key and first cell.
    void SetRows(std::vector<Row> rows);
    const std::vector<Row>& Rows() const;
    int Count() const { return static_cast<int>(Rows().size()); }
    QTreeView* View() const { return view_; }
    // The rows as text, one a line, cells between tabs.
    QString AsText() const;

  signals:
    void Chosen(const QString& key);  // Enter or double click on a row with a key
    void Acted(const QString& key);   // click on a row's action, or Space

  private:
    void Choose(int row);
    void Act(int row);

    PaneModel* model_;
    QTreeView* view_;
    QLabel* empty_;
};

}  // namespace calyx::ui
