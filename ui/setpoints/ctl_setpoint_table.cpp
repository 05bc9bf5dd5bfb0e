#include "ui/setpoints/ctl_setpoint_table.h"

#include <QAction>
#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <utility>

#include "model/setpoints/setpoint_edits.h"
#include "model/setpoints/setpoint_sentence.h"
#include "ui/form/choice_controls.h"
#include "ui/scales/wrap_layout.h"
#include "ui/setpoints/ctl_setpoint_bar.h"
#include "ui/setpoints/setpoint_texts.h"
#include "ui/text.h"
#include "ui/theme/metrics.h"
#include "ui/theme/theme.h"

namespace calyx::ui {

namespace {

constexpr int kFilterWidth = 136;
constexpr int kSentenceWidth = 320;
constexpr int kRoomy = 320;        // height
constexpr int kSentenceLines = 2;  // room for most, so that the table does not jump

constexpr ctlItemTable::Texts kTexts{.name = say::kTableName,
                                     .copied = say::kSetpointsCopied,
                                     .pasteStep = say::kSetpointsPasted,
                                     .noRoom = say::kSetpointsNoRoom,
                                     .nothingToPaste = say::kNoSetpointCopied,
                                     .notAsGiven = say::kSetpointLinesOdd,
                                     .clearStep = say::kClearStep,
                                     .clearSeveralStep = say::kClearSeveralStep,
                                     .nothingToClear = say::kNothingToClear};

}  // namespace

ctlSetpointTable::ctlSetpointTable(DocumentSession& session, const PageTools& tools)
    : ctlItemTable(session, kTexts),
      text_(new QLineEdit),
      kind_(new form::ChoiceBox),
      count_(new QLabel),
      sentence_(new QLabel),
      problem_(new QLabel),
      below_(new QWidget),
      bar_(new ctlSetpointBar(session, tools, QStringLiteral("table."))) {
    MakeGrid(SetpointHeadings(Words()),
             [this](const CIndicator& document) { return SetpointRows(document, filter_); });
    SetWidths();
    AddCommand(say::kMoveUp, "itemUp", Qt::CTRL | Qt::SHIFT | Qt::Key_Up, [this] { MoveBy(-1); });
    AddCommand(say::kMoveDown, "itemDown", Qt::CTRL | Qt::SHIFT | Qt::Key_Down, [this] { MoveBy(1); });
    sentence_->setObjectName(QStringLiteral("tableSentence"));
    sentence_->setTextFormat(Qt::PlainText);
    sentence_->setWordWrap(true);
    sentence_->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    sentence_->setMinimumHeight(kSentenceLines * sentence_->fontMetrics().lineSpacing());
    problem_->setObjectName(QStringLiteral("tableProblem"));
    problem_->setTextFormat(Qt::PlainText);
    problem_->setWordWrap(true);
    problem_->setForegroundRole(role::kProblem);
    noMatch_ = MakeNoMatch();
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(metrics::kPageEdge, metrics::kHalf, metrics::kPageEdge, metrics::kGroups);
    column->setSpacing(metrics::kRelated);
    column->addWidget(MakeFilter());
    column->addWidget(&Grid(), 1);
    column->addWidget(noMatch_, 1);
    column->addWidget(problem_);
    column->addWidget(sentence_);
    auto* below = new WrapLayout(below_, metrics::kRelated);
    buttons_ = MakeButtons(false);
    below->addWidget(buttons_);
    bar_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    below->addWidget(bar_);
    column->addWidget(below_);
    setTabOrder(checks_.back(), &Grid());
    connect(Grid().selectionModel(), &QItemSelectionModel::currentChanged, this,
            &ctlSetpointTable::ShowCurrent);
    connect(&Grid().Model(), &GridModel::UntakenChanged, this, &ctlSetpointTable::ShowCurrent);
    connect(bar_, &ctlSetpointBar::Made, this, &ctlSetpointTable::GoTo);
    connect(&session, &DocumentSession::Changed, this, &ctlSetpointTable::Follow);
    connect(&session, &DocumentSession::Replaced, this, &ctlSetpointTable::Follow);
    Grid().GoTo(1);
    ShowCount();
    ShowCurrent();
}

// As narrow as the columns can be, so that as much as can be of the sentence is seen.
void ctlSetpointTable::SetWidths() {
    constexpr int kCharacters[] = {4, 5, 10, 16, 8, 8, 9, 7, 6, 6};  // of numbers, words and headings
    QFont bold = Grid().font();
    bold.setBold(true);
    const int wide = QFontMetrics(bold).averageCharWidth();
    int column = 0;
    for (const int characters : kCharacters)
        Grid().setColumnWidth(column++, characters * wide + 2 * metrics::kRelated);
    Grid().SetLastColumn(kSentenceWidth);
}

QCheckBox* ctlSetpointTable::MakeCheck(int text, int tip, const char* name, bool SetpointFilter::*what) {
    auto* check = new QCheckBox(Say(Words(), text));
    check->setObjectName(QLatin1String(name));
    check->setToolTip(Say(Words(), tip));
    check->setMinimumHeight(metrics::kControlHeight);
    connect(check, &QCheckBox::toggled, this, [this, what](bool on) {
        filter_.*what = on;
        FilterChanged();
    });
    checks_.push_back(check);
    return check;
}

QWidget* ctlSetpointTable::MakeFilter() {
    text_->setObjectName(QStringLiteral("filterText"));
    text_->setClearButtonEnabled(true);
    text_->setFixedWidth(kFilterWidth);
    text_->setPlaceholderText(Say(Words(), say::kFilterHint));
    connect(text_, &QLineEdit::textChanged, this, [this](const QString& text) {
        filter_.text = text.trimmed();
        FilterChanged();
    });
    kind_->setObjectName(QStringLiteral("filterKind"));
    kind_->setFixedWidth(kFilterWidth);
    kind_->addItem(Say(Words(), say::kAllKinds), 0);
    for (int kind = kFirstSetpointKind; kind <= kLastSetpointKind; ++kind)
        kind_->addItem(Say(Words(), KindName(static_cast<SetpointKind>(kind))), kind);
    connect(kind_, &QComboBox::currentIndexChanged, this, [this] {
        filter_.kind = kind_->currentData().toInt();
        FilterChanged();
    });
    count_->setObjectName(QStringLiteral("filterCount"));
    count_->setForegroundRole(role::kQuietText);
    auto* filter = new QWidget;
    auto* wrap = new WrapLayout(filter, metrics::kRelated);
    const auto add = [&](int text, QWidget* control) {
        auto* label = new QLabel(Say(Words(), text));
        label->setBuddy(control);
        auto* pair = new QWidget;
        auto* row = new QHBoxLayout(pair);
        row->setContentsMargins(0, 0, metrics::kRelated, 0);
        row->setSpacing(metrics::kRelated);
        row->addWidget(label);
        row->addWidget(control);
        wrap->addWidget(pair);
    };
    add(say::kFilterText, text_);
    add(say::kFilterKind, kind_);
    wrap->addWidget(MakeCheck(say::kOnlyUsed, say::kOnlyUsedTip, "filterUsed", &SetpointFilter::onlyUsed));
    wrap->addWidget(
        MakeCheck(say::kOnlyBatch, say::kOnlyBatchTip, "filterBatch", &SetpointFilter::onlyBatch));
    wrap->addWidget(
        MakeCheck(say::kBatchOrder, say::kBatchOrderTip, "filterOrder", &SetpointFilter::batchOrder));
    count_->setMinimumHeight(metrics::kControlHeight);
    count_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    count_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    wrap->addWidget(count_);
    return filter;
}

QWidget* ctlSetpointTable::MakeNoMatch() {
    auto* words = new QLabel(Say(Words(), say::kNoMatch));
    auto* all = new QPushButton(Say(Words(), say::kShowAll));
    all->setObjectName(QStringLiteral("cmdShowAll"));
    all->setAutoDefault(false);
    connect(all, &QPushButton::clicked, this, &ctlSetpointTable::ShowAll);
    auto* empty = new QWidget;
    auto* column = new QVBoxLayout(empty);
    column->setContentsMargins(0, metrics::kPageEdge, 0, 0);
    column->setSpacing(metrics::kGroups);
    column->addWidget(words);
    column->addWidget(all, 0, Qt::AlignLeft);
    column->addStretch(1);
    return empty;
}

void ctlSetpointTable::FilterChanged() {
    filter_.stays = 0;
    const int number = Grid().CurrentNumber();
    Grid().Model().Refresh();
    if (!Grid().GoTo(number) && Grid().Model().rowCount() > 0)
        Grid().setCurrentIndex(Grid().Model().index(0, 0));
    ShowCount();
    ShowCurrent();
}

void ctlSetpointTable::ShowAll() {
    {
        const QSignalBlocker text(text_), kind(kind_);
        text_->clear();
        kind_->setCurrentIndex(0);
    }
    for (QCheckBox* check : checks_) {
        const QSignalBlocker quiet(check);
        check->setChecked(false);
    }
    filter_ = {};
    FilterChanged();
    if (noMatch_->isAncestorOf(focusWidget())) Grid().setFocus();
}

void ctlSetpointTable::GoTo(int number) {
    Grid().Model().Refresh();
    if (Grid().GoTo(number)) return;
    ShowAll();
    Grid().GoTo(number);
}

// The row that is edited stays in sight, also where an edit makes the filter pass it over.
void ctlSetpointTable::Follow() {
    filter_.stays = Grid().CurrentNumber();
    stale_ = true;
    if (!isVisible()) return;
    stale_ = false;
    Grid().Model().Refresh();
    ShowCount();
    ShowCurrent();
    bar_->Refresh();
}

// Where there is little room the rows get it; what goes is in the last column, the menu and on keys, too.
void ctlSetpointTable::resizeEvent(QResizeEvent* event) {
    ctlItemTable::resizeEvent(event);
    const bool roomy = height() >= kRoomy;
    for (QWidget* part : std::initializer_list<QWidget*>{sentence_, count_, buttons_})
        part->setVisible(roomy);
}

void ctlSetpointTable::showEvent(QShowEvent* event) {
    ctlItemTable::showEvent(event);
    if (stale_) Follow();
}

void ctlSetpointTable::ShowCount() {
    const int rows = Grid().Model().rowCount();
    count_->setText(Say(Words(), say::kShownOf, QString::number(rows), QString::number(kSetpoints)));
    Grid().setVisible(rows > 0);
    noMatch_->setVisible(rows == 0);
    below_->setVisible(rows > 0);
}

void ctlSetpointTable::ShowCurrent() {
    const int number = Grid().CurrentNumber();
    if (number == 0) {
        sentence_->clear();
        problem_->hide();
        return;
    }
    QString problem = Grid().Model().Problem(Grid().currentIndex());
    if (problem.isEmpty()) problem = ProblemOf(number);
    problem_->setText(problem);
    problem_->setVisible(!problem.isEmpty());
    const QString what = Shown(SetpointSentence(All().Item(number), Words()));
    sentence_->setText(Say(Words(), say::kSentenceOf, QString::number(number), what));
    bar_->SetNumber(number);
}

void ctlSetpointTable::MoveBy(int step) {
    const int from = Grid().CurrentNumber(), to = from + step;
    if (from == 0) return;
    if (to < 1 || to > kSetpoints)
        return emit Session().Told(Say(Words(), say::kNoFurther, QString::number(from)));
    const auto changes = MoveSetpoint(All(), from, to);
    Apply(changes, Words().Format(say::kMoveStep, {std::to_string(from), std::to_string(to)}));
    GoTo(to);
}

const CSetpoints& ctlSetpointTable::All() const {
    return std::as_const(Session()).Document().Setpoints();
}

std::string ctlSetpointTable::Lines(const std::vector<int>& numbers, bool) const {
    return CopySetpoints(All(), numbers);
}

ctlItemTable::Pasted ctlSetpointTable::Read(std::string_view lines, int first) const {
    PastedSetpoints pasted = PasteSetpoints(All(), lines, first);
    return {pasted.count, first + pasted.count - 1 <= kSetpoints, std::move(pasted.changes),
            pasted.report.Count()};
}

std::vector<Change> ctlSetpointTable::Cleared(int number) const {
    return ClearSetpoint(All(), number);
}

}  // namespace calyx::ui
