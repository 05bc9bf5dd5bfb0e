#pragma once

#include <QTreeWidget>
#include <set>
#include <string>
#include <vector>

#include "comm/safe_send.h"

namespace calyx::ui {

// The lines of a run to an indicator, grouped by where they stand: what differs, what goes, and what became
// of each. A line that goes has a tick; lines that the indicator clears before are ticked together.
class ctlSendLines : public QTreeWidget {
    Q_OBJECT

  public:
    enum class Filter { All, Sent, NotSent };

    ctlSendLines(const CIndicator& document, QWidget* parent = nullptr);

    // What is to be looked at before it is sent. Lines that are the same on both sides are left out.
    void ShowPlan(const SendPlan& plan);
    // The lines of a run that was broken off.
    void ShowRecord(const SendRecord& record);
    // The ticks as the person has set them.
    void TakeTicks(SendPlan& plan) const;
    int Ticked() const;
    int NotGoing() const { return notGoing_; }
    int Lines() const { return static_cast<int>(lines_.size()); }
    void SetFilter(Filter filter, const QString& words);
    void SetTickable(bool tickable);

    // Of the run: which of the lines are sent, in their order; the fate of the next one; and what was found.
    void BeginRun();
    void Mark(LineFate fate);
    void ShowReport(const SafeSendReport& report);
    // After what was there was put back: what differed before differs again.
    void ShowRestored();
    // Keys in capitals that differ between document and indicator now.
    std::set<std::string> Differing() const;

  signals:
    void TicksChanged();
    void Chosen(const QString& key);

  private:
    struct Line {
        QTreeWidgetItem* item;
        std::size_t plan;  // place in the plan
        std::size_t step;
        std::string key, text;
        bool goes;     // can be ticked
        bool whole;    // with all of its step
        bool differs;  // and the indicator could have it
        bool green = false;
    };
    enum class Sign { None, Good, Bad };

    QTreeWidgetItem* Group(const QString& place);
    void Add(const PlannedLine& line, const QString& place, std::size_t number, bool whole);
    void SetState(const Line& line, const QString& words, Sign sign);
    void TickChanged(QTreeWidgetItem* item, int column);
    void Tick(const Line& changed, Qt::CheckState tick);
    void ShowGroupTicks();
    void ShowFirstBad();

    const CIndicator& document_;
    const ResourceTexts& texts_;
    std::vector<Line> lines_;
    std::vector<std::size_t> run_;  // the lines of the run under way
    std::size_t next_ = 0;
    int notGoing_ = 0;
    bool filling_ = false;
};

}  // namespace calyx::ui
