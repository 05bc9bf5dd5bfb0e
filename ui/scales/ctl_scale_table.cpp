#include "ui/scales/ctl_scale_table.h"

#include <QHeaderView>
#include <QLabel>
#include <QVBoxLayout>
#include <utility>

#include "model/scales/scale_edits.h"
#include "ui/scales/scale_choices.h"
#include "ui/scales/scale_texts.h"
#include "ui/text.h"
#include "ui/theme/metrics.h"
#include "ui/theme/theme.h"

namespace calyx::ui {

namespace {

constexpr ctlItemTable::Texts kTexts{.name = say::kScaleTableName,
                                     .copied = say::kScalesCopied,
                                     .pasteStep = say::kScalesPasted,
                                     .noRoom = say::kScalesNoRoom,
                                     .nothingToPaste = say::kNoScaleCopied,
                                     .notAsGiven = say::kScaleLinesOdd,
                                     .clearStep = say::kClearScaleStep,
                                     .clearSeveralStep = say::kClearScalesStep,
                                     .nothingToClear = say::kNoScaleToClear};

// "Channels 1, 3"; one source by its full words.
QString SourceWords(const CIndicator& document, int number) {
    const std::vector<SourceChoice> sources = PresentSources(document, number);
    if (sources.empty()) return {};
    if (sources.size() == 1) return sources.front().words;
    QStringList all;
    for (const SourceChoice& source : sources) all += source.shortWords;
    const bool total = document.Scales().Scale(number).ScaleType() == scale_kind::kTotal;
    return Say(document.Context().texts, total ? say::kScales : say::kChannels,
               all.join(QStringLiteral(", ")));
}

std::vector<GridRow> ScaleRows(const CIndicator& document) {
    constexpr int kScaleTitle = 3100;
    std::vector<GridRow> rows;
    for (int number = 1; number <= kScaleCount; ++number) {
        const auto key = [number](const char* stem) {
            return "SC." + std::string(stem) + "#" + std::to_string(number);
        };
        const CScale& scale = document.Scales().Scale(number);
        const bool off = scale.ScaleType() == scale_kind::kNone;
        const bool programmable = scale.ScaleType() == scale_kind::kProgrammable;
        GridRow& row =
            rows.emplace_back(GridRow{{"scales", kScaleTitle, number}, QString::number(number), {}});
        row.cells.push_back({key("ALIAS"), {}, {}});
        row.cells.push_back({{}, Shown(scale.KindName()), off ? QString() : KeyText(key("KIND"))});
        row.cells.push_back(
            {{}, programmable ? QString() : SourceWords(document, number), KeyText(key("SRC"))});
        row.cells.push_back({key("PRI.UNITS"), {}, {}});
        row.cells.push_back({key("GRADS"), {}, {}});
    }
    return rows;
}

QStringList ScaleHeadings(const ResourceTexts& texts) {
    QStringList headings;
    for (const int text : say::kScaleColumns) headings += Say(texts, text);
    return headings;
}

}  // namespace

ctlScaleTable::ctlScaleTable(DocumentSession& session) : ctlItemTable(session, kTexts), note_(new QLabel) {
    MakeGrid(ScaleHeadings(Words()), ScaleRows);
    constexpr int kSourceColumn = 3;
    Grid().horizontalHeader()->setStretchLastSection(false);
    Grid().horizontalHeader()->setSectionResizeMode(kSourceColumn, QHeaderView::Stretch);
    note_->setObjectName(QStringLiteral("tableNote"));
    note_->setTextFormat(Qt::PlainText);
    note_->setWordWrap(true);
    note_->setMinimumHeight(note_->fontMetrics().lineSpacing());
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(metrics::kPageEdge, metrics::kRelated, metrics::kPageEdge, metrics::kGroups);
    column->setSpacing(metrics::kRelated);
    column->addWidget(&Grid(), 1);
    column->addWidget(note_);
    column->addWidget(MakeButtons(true));
    connect(Grid().selectionModel(), &QItemSelectionModel::currentChanged, this, &ctlScaleTable::ShowNote);
    connect(&Grid().Model(), &GridModel::UntakenChanged, this, &ctlScaleTable::ShowNote);
    ShowNote();
}

// What is wrong in the cell, else with the scale, else what the cell is for.
void ctlScaleTable::ShowNote() {
    const QModelIndex current = Grid().currentIndex();
    QString problem = Grid().Model().Problem(current);
    if (problem.isEmpty()) problem = ProblemOf(Grid().CurrentNumber());
    note_->setForegroundRole(problem.isEmpty() ? role::kQuietText : role::kProblem);
    note_->setText(problem.isEmpty() ? Grid().Model().Help(current) : problem);
}

const CIndicator& ctlScaleTable::Document() const {
    return std::as_const(Session()).Document();
}

std::string ctlScaleTable::Lines(const std::vector<int>& numbers, bool own) const {
    return CopyScales(Document().Scales(), numbers, own);
}

ctlItemTable::Pasted ctlScaleTable::Read(std::string_view lines, int first) const {
    const CHardware& hardware = Document().Hardware();
    PastedScales pasted =
        PasteScales(Document().Scales(), lines, first, [&](int port) { return hardware.InputOf(port); });
    return {pasted.count, first + pasted.count - 1 <= kScaleCount, std::move(pasted.changes),
            pasted.report.Count()};
}

std::vector<Change> ctlScaleTable::Cleared(int number) const {
    return ClearScale(Document().Scales(), number);
}

}  // namespace calyx::ui
