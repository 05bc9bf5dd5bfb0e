#include "ui/link/compare/ctl_send_lines.h"

#include <QHeaderView>
#include <QScopedValueRollback>
#include <algorithm>
#include <map>

#include "model/language/text.h"
#include "ui/link/compare/compare_texts.h"
#include "ui/panes/where.h"
#include "ui/text.h"
#include "ui/texts.h"
#include "ui/theme/icons.h"
#include "ui/theme/theme.h"

namespace calyx::ui {

using namespace compare_text;
using Fate = PlannedLine::Fate;

namespace {

enum Column { kKeyColumn, kCaptionColumn, kDocumentColumn, kHeldColumn, kStateColumn };
constexpr int kKeyWidth = 190, kCaptionWidth = 150, kValueWidth = 110, kIndent = 16;
constexpr int kPlaceOfLine = Qt::UserRole;  // in lines_, of the item of a line

constexpr std::string_view kTickStrokes = "M 3 8 L 7 12 L 13 4";
constexpr std::string_view kCrossStrokes = "M 4 4 L 12 12 M 12 4 L 4 12";

// Green that can be read on the field's colour; the mark beside it says the same without colour.
QColor GoodColour(const QPalette& palette) {
    return palette.color(role::kField).lightness() > 127 ? QColor(0x1a, 0x6b, 0x30)
                                                         : QColor(0x5f, 0xd0, 0x82);
}

std::string ValueOf(const std::string& line) {
    const std::size_t equals = line.find('=');
    return equals == std::string::npos ? std::string() : line.substr(equals + 1);
}

int FailedState(LineFate fate) {
    if (fate == LineFate::HeldBack) return kHeldBack;
    return fate == LineFate::Refused ? kRefused : kNoAnswer;
}

}  // namespace

ctlSendLines::ctlSendLines(const CIndicator& document, QWidget* parent)
    : QTreeWidget(parent), document_(document), texts_(document.Context().texts) {
    setObjectName(QStringLiteral("lines"));
    setAccessibleName(Say(texts_, say::kCompareList));
    setHeaderLabels({Say(texts_, kLine), Say(texts_, say::kMeaning), Say(texts_, say::kDocumentSide),
                     Say(texts_, say::kIndicatorSide), Say(texts_, kState)});
    setUniformRowHeights(true);
    setIndentation(kIndent);
    setAllColumnsShowFocus(true);
    setEditTriggers(NoEditTriggers);
    header()->setSectionsMovable(false);
    header()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    header()->setStretchLastSection(true);
    header()->resizeSection(kKeyColumn, kKeyWidth);
    header()->resizeSection(kCaptionColumn, kCaptionWidth);
    for (const int column : {kDocumentColumn, kHeldColumn})
        header()->resizeSection(column, std::max(kValueWidth, header()->sectionSizeHint(column)));
    connect(this, &QTreeWidget::itemChanged, this, &ctlSendLines::TickChanged);
    connect(this, &QTreeWidget::itemActivated, this, [this](QTreeWidgetItem* item) {
        const QVariant place = item->data(0, kPlaceOfLine);
        if (!place.isValid()) return;
        const std::string& key = lines_[place.toULongLong()].key;
        if (!key.empty()) emit Chosen(KeyText(key));
    });
}

QTreeWidgetItem* ctlSendLines::Group(const QString& place) {
    for (int i = 0; i < topLevelItemCount(); ++i) {
        if (topLevelItem(i)->text(0) == place) return topLevelItem(i);
    }
    auto* group = new QTreeWidgetItem(this, {place});
    group->setFont(0, StrongFont());
    group->setFirstColumnSpanned(true);
    group->setExpanded(true);
    return group;
}

void ctlSendLines::Add(const PlannedLine& line, const QString& place, std::size_t number, bool whole) {
    QTreeWidgetItem* group = Group(place);
    const bool goes = line.fate == Fate::Send;
    const QString none = Say(texts_, say::kNoLine);
    auto* item = new QTreeWidgetItem(group);
    item->setText(kKeyColumn, ShownValue(line.key.empty() ? line.line : line.key));
    item->setFont(kKeyColumn, FixedFont());
    item->setText(kCaptionColumn, line.key.empty() ? QString() : LabelOf(document_, line.key));
    if (!line.key.empty()) {
        item->setText(kDocumentColumn, line.line.empty() ? none : ShownValue(ValueOf(line.line)));
        item->setText(kHeldColumn, line.held ? ShownValue(*line.held) : none);
    }
    item->setData(0, kPlaceOfLine, static_cast<qulonglong>(lines_.size()));
    if (goes) {
        item->setCheckState(0, line.ticked ? Qt::Checked : Qt::Unchecked);
        if (whole) item->setToolTip(0, Say(texts_, kGoesWhole));
    } else {
        item->setFlags(item->flags() & ~Qt::ItemIsUserCheckable);
        for (int column = 0; column < columnCount(); ++column)
            item->setForeground(column, palette().brush(role::kQuietText));
    }
    lines_.push_back(
        {item, number, line.step, line.key, line.line, goes, whole, line.fate != Fate::NotKnown});
    SetState(lines_.back(), goes ? Say(texts_, line.ticked ? kWillGo : kWillNotGo) : Shown(line.reason),
             Sign::None);
}

void ctlSendLines::ShowPlan(const SendPlan& plan) {
    const QScopedValueRollback<bool> filling(filling_, true);
    clear();
    lines_.clear();
    run_.clear();
    notGoing_ = 0;
    // A command stands with the lines that it goes with.
    std::map<std::size_t, QString> places;
    for (const PlannedLine& line : plan.Lines()) {
        if (!line.place.empty() && line.fate == Fate::Send) places.emplace(line.step, Shown(line.place));
    }
    for (std::size_t i = 0; i < plan.Lines().size(); ++i) {
        const PlannedLine& line = plan.Lines()[i];
        if (line.fate == Fate::Same) continue;
        notGoing_ += line.fate == Fate::Send ? 0 : 1;
        QString place = Shown(line.place);
        if (place.isEmpty()) place = places[line.step];
        if (place.isEmpty()) place = Say(texts_, kCommands);
        const bool whole = line.fate == Fate::Send && !plan.All()[line.step].clears.empty();
        Add(line, place, i, whole);
    }
    ShowGroupTicks();
}

void ctlSendLines::ShowRecord(const SendRecord& record) {
    const QScopedValueRollback<bool> filling(filling_, true);
    clear();
    lines_.clear();
    notGoing_ = 0;
    std::size_t number = 0;
    for (std::size_t step = 0; step < record.steps.size(); ++step) {
        ForEachLine(record.steps[step].lines, [&](std::string_view text) {
            if (Trim(text).empty()) return;
            PlannedLine line{.line = std::string(text), .step = step};
            const std::size_t equals = text.find('=');
            if (record.steps[step].parameters && equals != std::string_view::npos)
                line.key = std::string(text.substr(0, equals));
            const QString place = line.key.empty() ? QString() : WhereWords(document_, line.key);
            Add(line, place.isEmpty() ? Say(texts_, kCommands) : place, number, false);
            lines_.back().item->setText(kHeldColumn, QString());
            ++number;
        });
    }
    BeginRun();
    for (const LineFate fate : record.fates) Mark(fate);
    SetTickable(false);
}

int ctlSendLines::Ticked() const {
    return static_cast<int>(std::count_if(lines_.begin(), lines_.end(), [](const Line& line) {
        return line.goes && line.item->checkState(0) == Qt::Checked;
    }));
}

void ctlSendLines::TakeTicks(SendPlan& plan) const {
    for (const Line& line : lines_) {
        if (line.goes) plan.Lines()[line.plan].ticked = line.item->checkState(0) == Qt::Checked;
    }
}

// A group's tick is that of all its lines.
void ctlSendLines::TickChanged(QTreeWidgetItem* item, int column) {
    if (filling_ || column != 0) return;
    const Qt::CheckState tick = item->checkState(0);
    const QVariant place = item->data(0, kPlaceOfLine);
    for (const Line& line : lines_) {
        if (place.isValid() ? line.item == item : line.item->parent() == item) Tick(line, tick);
    }
    ShowGroupTicks();
    emit TicksChanged();
}

void ctlSendLines::Tick(const Line& changed, Qt::CheckState tick) {
    if (!changed.goes) return;
    const QScopedValueRollback<bool> filling(filling_, true);
    for (const Line& line : lines_) {
        const bool same = &line == &changed || (changed.whole && line.whole && line.step == changed.step);
        if (!same || !line.goes) continue;
        line.item->setCheckState(0, tick);
        SetState(line, Say(texts_, tick == Qt::Checked ? kWillGo : kWillNotGo), Sign::None);
    }
}

void ctlSendLines::ShowGroupTicks() {
    struct Count {
        int lines = 0, ticked = 0;
    };
    const QScopedValueRollback<bool> filling(filling_, true);
    std::map<QTreeWidgetItem*, Count> counts;
    for (const Line& line : lines_) {
        if (!line.goes) continue;
        Count& count = counts[line.item->parent()];
        ++count.lines;
        count.ticked += line.item->checkState(0) == Qt::Checked ? 1 : 0;
    }
    for (const auto& [group, count] : counts) {
        group->setCheckState(0, count.ticked == 0             ? Qt::Unchecked
                                : count.ticked == count.lines ? Qt::Checked
                                                              : Qt::PartiallyChecked);
    }
}

void ctlSendLines::SetTickable(bool tickable) {
    const QScopedValueRollback<bool> filling(filling_, true);
    const auto set = [tickable](QTreeWidgetItem* item) {
        item->setFlags(tickable ? item->flags() | Qt::ItemIsUserCheckable
                                : item->flags() & ~Qt::ItemIsUserCheckable);
    };
    for (const Line& line : lines_) {
        if (!line.goes) continue;
        set(line.item);
        set(line.item->parent());
    }
}

void ctlSendLines::SetFilter(Filter filter, const QString& words) {
    std::map<QTreeWidgetItem*, bool> shown;
    for (const Line& line : lines_) {
        bool fits = filter == Filter::All || line.goes == (filter == Filter::Sent);
        bool found = words.isEmpty() || line.item->parent()->text(0).contains(words, Qt::CaseInsensitive);
        for (int column = 0; column < columnCount(); ++column)
            found = found || line.item->text(column).contains(words, Qt::CaseInsensitive);
        fits = fits && found;
        line.item->setHidden(!fits);
        shown[line.item->parent()] |= fits;
    }
    for (const auto& [group, any] : shown) group->setHidden(!any);
}

void ctlSendLines::SetState(const Line& line, const QString& words, Sign sign) {
    const QScopedValueRollback<bool> filling(filling_, true);
    line.item->setText(kStateColumn, words);
    line.item->setToolTip(kStateColumn, words);
    if (sign == Sign::None) return line.item->setIcon(kStateColumn, QIcon());
    const bool good = sign == Sign::Good;
    const QColor colour = good ? GoodColour(palette()) : palette().color(role::kProblem);
    constexpr int kSide = 16;
    QPixmap picture(QSize(kSide, kSide) * devicePixelRatioF());
    picture.setDevicePixelRatio(devicePixelRatioF());
    picture.fill(Qt::transparent);
    {
        QPainter painter(&picture);
        painter.setRenderHint(QPainter::Antialiasing);
        DrawStrokes(painter, {}, kSide, colour, good ? kTickStrokes : kCrossStrokes);
    }
    line.item->setIcon(kStateColumn, QIcon(picture));
    line.item->setForeground(kStateColumn, colour);
}

void ctlSendLines::BeginRun() {
    run_.clear();
    next_ = 0;
    for (std::size_t i = 0; i < lines_.size(); ++i) {
        if (!lines_[i].goes || lines_[i].item->checkState(0) != Qt::Checked) continue;
        run_.push_back(i);
        SetState(lines_[i], Say(texts_, kNotSentYet), Sign::None);
        lines_[i].item->setData(kStateColumn, Qt::ForegroundRole, QVariant());
    }
}

void ctlSendLines::Mark(LineFate fate) {
    if (next_ >= run_.size() || fate == LineFate::Waiting) return;
    const Line& line = lines_[run_[next_++]];
    if (fate == LineFate::Accepted) {
        SetState(line, Say(texts_, kAccepted), Sign::None);
    } else {
        SetState(line, Say(texts_, FailedState(fate)), Sign::Bad);
    }
    if (!line.item->isHidden()) scrollToItem(line.item);
}

void ctlSendLines::ShowReport(const SafeSendReport& report) {
    const std::size_t count = std::min(run_.size(), report.lines.size());
    next_ = 0;
    for (std::size_t i = 0; i < count; ++i) {
        Line& line = lines_[run_[i]];
        const SafeSendReport::Line& result = report.lines[i];
        line.green = result.green;
        if (result.fate != LineFate::Waiting) next_ = i + 1;
        if (report.readBack && !line.key.empty())
            line.item->setText(kHeldColumn,
                               result.held ? ShownValue(*result.held) : Say(texts_, say::kNoLine));
        switch (result.fate) {
            case LineFate::Waiting:
                SetState(line, Say(texts_, kNotSentYet), Sign::None);
                break;
            case LineFate::Refused:
            case LineFate::Unanswered:
            case LineFate::HeldBack:
                SetState(line, Say(texts_, FailedState(result.fate)), Sign::Bad);
                break;
            case LineFate::Accepted:
                if (result.green)
                    SetState(line, Say(texts_, result.readable ? kReadBack : kDone), Sign::Good);
                else if (!report.readBack)
                    SetState(line, Say(texts_, kUnread), Sign::Bad);
                else
                    SetState(
                        line,
                        result.held ? Say(texts_, kOther, ShownValue(*result.held)) : Say(texts_, kMissing),
                        Sign::Bad);
        }
    }
}

void ctlSendLines::ShowRestored() {
    for (const std::size_t place : run_) lines_[place].green = false;
}

std::set<std::string> ctlSendLines::Differing() const {
    std::set<std::string> keys;
    for (const Line& line : lines_) {
        if (!line.key.empty() && line.differs && !line.green) keys.insert(Upper(line.key));
    }
    return keys;
}

}  // namespace calyx::ui
