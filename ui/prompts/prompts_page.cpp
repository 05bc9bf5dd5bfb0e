#include "ui/prompts/prompts_page.h"

#include "ui/prompts/prompts_texts.h"
#include "ui/text.h"
#include "ui/theme/metrics.h"

namespace calyx::ui {

namespace {

using namespace prompts_text;

constexpr int kSectionTitle = 2120, kPromptLabels = 6000;  // + number

GridCell UsersOf(const CIndicator& document, int prompt) {
    GridCell cell;
    QStringList users;
    for (const CSetpoint& setpoint : document.Setpoints()) {
        const SetpointFields& fields = setpoint.Values();
        if (fields.nameNumber != prompt || !HasSetpointLine(fields, "NAME")) continue;
        const int number = setpoint.Number();
        if (users.isEmpty()) cell.goTo = KeyText(SetpointKey("NAME", number));
        users += Say(document.Context().texts, kSetpoint, QString::number(number));
    }
    cell.words = users.join(QStringLiteral(", "));
    return cell;
}

std::vector<GridRow> PromptRows(const CIndicator& document) {
    const ResourceTexts& texts = document.Context().texts;
    std::vector<GridRow> rows;
    for (int number = 1; number <= PromptFields::kCount; ++number) {
        const std::size_t length = document.Prompts().Prompt(number).size();
        const QString room =
            Say(texts, kLengthOf, QString::number(length), QString::number(PromptFields::kLongest));
        rows.push_back({{std::string(document.Prompts().Name())},
                        Say(texts, kPromptLabels + number),
                        {{"PROMPT#" + std::to_string(number), {}, {}},
                         {{}, length == 0 ? QString() : room, {}},
                         UsersOf(document, number)}});
    }
    return rows;
}

}  // namespace

ctlGridPage* MakePromptsPage(DocumentSession& session) {
    const ResourceTexts& texts = session.Context().texts;
    QStringList headings;
    for (const int text : kPromptHeadings) headings += Say(texts, text);
    auto* page = new ctlGridPage(session, headings, PromptRows, Say(texts, kSectionTitle));
    ctlGrid& grid = page->Grid();
    grid.setObjectName(QStringLiteral("promptGrid"));
    const QFontMetrics font(grid.font());
    const int letters = static_cast<int>(PromptFields::kLongest);
    grid.setColumnWidth(1, font.averageCharWidth() * letters + metrics::kIconLarge);
    grid.setColumnWidth(2, font.horizontalAdvance(QStringLiteral("00 of 00")) + metrics::kIconLarge);
    return page;
}

}  // namespace calyx::ui
