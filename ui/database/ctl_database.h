#pragma once

#include <QWidget>
#include <set>
#include <string>

#include "ui/database/ctl_fields.h"
#include "ui/database/ctl_tables.h"

class QComboBox;
class QLabel;
class QStackedWidget;

namespace calyx::ui {

// The database tables of the memory cards: the tables of a card, and the fields of the chosen table.
class ctlDatabase : public QWidget {
    Q_OBJECT

  public:
    explicit ctlDatabase(DocumentSession& session);

    bool FocusKey(const QString& key);
    void SetDiffering(const std::set<std::string>& keys);

  signals:
    void KeyFocused(const QString& key);
    void ShowInLines(const QString& key);
    void ParameterWanted(const QString& key);

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    QWidget* MakeEmptyState();
    QWidget* MakeEditor();
    QWidget* MakePart(QLabel* heading, ctlRowGrid* grid, QLabel* note, QWidget* bar);
    void Watch(ctlRowGrid* grid, QLabel* note);
    void ShowNote(ctlRowGrid& grid, QLabel& note);
    void Follow();
    void Refresh();
    void ShowCards();
    void ShowTable();
    void ShowSlot(int slot);

    DocumentSession& session_;
    QStackedWidget* stack_;
    QComboBox* cards_;
    QLabel* cardsLabel_;
    ctlTables* tables_;
    ctlFields* fields_;
    QLabel *tableHeading_, *fieldHeading_, *tableNote_, *fieldNote_;
    bool stale_ = true;
};

}  // namespace calyx::ui
