#pragma once

#include "ui/tables/ctl_item_table.h"

class QLabel;

namespace calyx::ui {

// The 31 ticket formats in one table: where each is printed, how long its text is and whether it is still the
// one that it began with. Copies of whole formats can be pasted over others; clearing restores the text.
class ctlTicketTable : public ctlItemTable {
    Q_OBJECT

  public:
    explicit ctlTicketTable(DocumentSession& session);

    int NumberOf(const QString& key) const override;

  protected:
    std::string Lines(const std::vector<int>& numbers, bool own) const override;
    Pasted Read(std::string_view lines, int first) const override;
    std::vector<Change> Cleared(int number) const override;

  private:
    void ShowNote();
    const CTickets& Tickets() const;

    QLabel* note_;
};

}  // namespace calyx::ui
