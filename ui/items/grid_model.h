#pragma once

#include <QAbstractTableModel>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "ui/document_session.h"
#include "ui/form/control.h"
#include "ui/form/item_ref.h"
#include "ui/form/page_state.h"

namespace calyx::ui {

// One cell of a grid: a parameter of the row's item, or words.
struct GridCell {
    std::string key = {};  // of the parameter; empty: only words
    QString words = {};    // shown where there is no key
    QString goTo = {};     // key that Enter or a double click on the words leads to
};

// One row of a grid.
struct GridRow {
    ItemRef item;                 // whose parameters its cells are
    QString title;                // shown in the first column
    std::vector<GridCell> cells;  // for the columns behind the title; none: a heading over all columns
};

// What a grid shows, taken anew after every change of the document.
using GridSource = std::function<std::vector<GridRow>(const CIndicator& document)>;

// One row an item of these kinds (resource texts of the items' titles), one column a stem; and the
// headings for them, the labels of the rows.
GridSource ItemsAsRows(std::string section, std::vector<int> kinds, std::vector<std::string> stems);
QStringList ItemHeadings(const DocumentSession& session, const std::string& section, int kind,
                         const std::vector<std::string>& stems);

// Parameters of several items side by side, to be edited in their cells; its view is ctlGrid. Every edit
// is one undo step, a paste into many cells too. Input that cannot be taken stays in its cell, with what is
// wrong, until it is mended or given up; the document never gets it.
class GridModel : public QAbstractTableModel {
    Q_OBJECT

  public:
    // `headings`: of the title's column and of those behind it. Refresh fills the grid.
    GridModel(DocumentSession& session, QStringList headings, GridSource source, QObject* parent);

    void Refresh();
    void SetDiffering(const std::set<std::string>& keys);  // from what the indicator holds
    QModelIndex Find(const QString& key) const;
    const GridRow& RowAt(int row) const { return rows_[static_cast<std::size_t>(row)]; }
    bool IsHeading(int row) const { return RowAt(row).cells.empty(); }
    std::string KeyAt(const QModelIndex& index) const;  // empty: no parameter there
    // The parameter of a cell that can be edited at present; a look at the document.
    std::optional<form::Parameter> ParameterAt(const QModelIndex& index) const;
    form::Offers OffersAt(const QModelIndex& index) const;  // nothing where the cell is no reference
    QString GoToOf(const QModelIndex& index) const;
    bool IsAbsent(const QModelIndex& index) const;   // a parameter that the item does not use at present
    QString NameOf(const QModelIndex& index) const;  // "Point 3: alias"
    // What was typed and not taken; null: nothing.
    QString Untaken(const QModelIndex& index) const;
    // What is wrong in the cell, typed or kept; else empty.
    QString Problem(const QModelIndex& index) const;
    QString Help(const QModelIndex& index) const;  // one or two sentences

    // Takes what was entered in a cell.
    void Enter(const QModelIndex& index, const form::Entry& entry, const QString& typed);
    void GiveUp(const QModelIndex& index);
    // Cells as lines of texts between tabs, as spreadsheets have them.
    QString Copy(const QModelIndexList& cells) const;
    // Puts such texts into the cells from this one on, or one text into all the cells; stops at a heading. As
    // one step. What was taken and what was not is told on the status line.
    void Paste(const QModelIndexList& cells, const QString& text);
    void ResetToDefault(const QModelIndexList& cells);  // as one step

    // For DocumentSession::Finishing, GivingUp and Replaced.
    void AddUntaken(QStringList& wrong) const;
    void GiveUpAll();

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;  // switches only
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

  signals:
    void UntakenChanged();  // what Problem says of a cell

  private:
    struct Cell {  // what the document says of it
        QString shown, problem;
        QStringList marks;
        std::string text;
        bool present = false, editable = false, isDefault = true, isSwitch = false, isOn = false;
        bool isNumber = false, changed = false, differs = false;
    };
    struct Typed {
        QString text, words;
        std::string was;  // the document's value beneath it
    };

    void Fill();
    void AlignColumns();
    Qt::Alignment AlignmentOf(int column) const;
    Cell Look(const Item& item, std::size_t row, const form::PageState& state) const;
    const Cell* CellAt(const QModelIndex& index) const;
    const GridCell* SpecAt(const QModelIndex& index) const;
    const Typed* TypedAt(const QModelIndex& index) const;
    QVariant ToolTipOf(const QModelIndex& index) const;
    QString SpokenOf(const QModelIndex& index) const;
    std::optional<form::Parameter> LookUp(const QModelIndex& index) const;
    void Keep(const QModelIndex& index, const QString& typed, const QString& words);
    void TakeAll(const std::vector<std::pair<QModelIndex, QString>>& texts, int unfitting);
    std::vector<Refusal> Store(const std::vector<KeyValue>& lines, int step);

    DocumentSession& session_;
    const QStringList headings_;
    const GridSource source_;
    std::vector<GridRow> rows_;
    std::vector<std::vector<Cell>> cells_;
    std::vector<bool> figures_;             // by column, the title's first: numbers stand on the right
    std::map<std::string, Typed> untaken_;  // by key
    std::set<std::string> differing_;       // in capitals
};

}  // namespace calyx::ui
