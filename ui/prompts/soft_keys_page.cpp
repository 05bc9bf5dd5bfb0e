#include "ui/prompts/soft_keys_page.h"

#include <algorithm>

#include "ui/prompts/ctl_row_grid.h"
#include "ui/prompts/prompts_texts.h"
#include "ui/text.h"

namespace calyx::ui {

namespace {

using namespace prompts_text;

constexpr int kPlaceLabels = 6110, kKeyLabels = 6100;  // + number

std::string FunctionKey(int key) {
    return "SOFTKEY#" + std::to_string(key);
}
std::string PlaceKey(int place) {
    return "SOFTKEY.ORDER#" + std::to_string(place);
}

// The places, then the keys that stand at none.
std::vector<GridRow> SoftKeyRows(const CIndicator& document) {
    const ResourceTexts& texts = document.Context().texts;
    const ItemRef item{std::string(document.General().Name())};
    const auto& order = document.General().SoftKeys().order;
    const auto isKey = [](int key) { return key >= 1 && key <= SoftKeyFields::kCount; };
    std::vector<GridRow> rows;
    for (int place = 1; place <= SoftKeyFields::kCount; ++place) {
        const int key = order[static_cast<std::size_t>(place - 1)];
        rows.push_back(
            {item,
             Say(texts, kPlaceLabels + place),
             {{PlaceKey(place), {}, {}}, {isKey(key) ? FunctionKey(key) : std::string(), {}, {}}}});
    }
    for (int key = 1; key <= SoftKeyFields::kCount; ++key) {
        if (std::find(order.begin(), order.end(), key) != order.end()) continue;
        rows.push_back({item,
                        Say(texts, kNotOnDisplay),
                        {{{}, Say(texts, kKeyLabels + key), {}}, {FunctionKey(key), {}, {}}}});
    }
    return rows;
}

void Move(DocumentSession& session, ctlRowGrid& grid, int from, int to) {
    auto order = std::as_const(session).Document().General().SoftKeys().order;
    const std::string moved = std::to_string(order[static_cast<std::size_t>(from)]);
    if (from < to) {
        std::rotate(order.begin() + from, order.begin() + from + 1, order.begin() + to + 1);
    } else {
        std::rotate(order.begin() + to, order.begin() + from, order.begin() + from + 1);
    }
    std::vector<KeyValue> lines;
    for (int place = 1; place <= SoftKeyFields::kCount; ++place)
        lines.push_back({PlaceKey(place), std::to_string(order[static_cast<std::size_t>(place - 1)])});
    const int column = grid.currentIndex().column();
    session.Do(session.Context().texts.Format(kSoftKeyMoved, {moved, std::to_string(to + 1)}),
               [&](CIndicator& document) { return document.Import(lines); });
    grid.GoTo(to, column);
}

}  // namespace

ctlGridPage* MakeSoftKeysPage(DocumentSession& session) {
    const ResourceTexts& texts = session.Context().texts;
    QStringList headings;
    for (const int text : kSoftKeyHeadings) headings += Say(texts, text);
    auto* grid = new ctlRowGrid(session, new GridModel(session, headings, SoftKeyRows, nullptr),
                                Say(texts, kSoftKeys));
    grid->setObjectName(QStringLiteral("softKeyGrid"));
    grid->SetMovable([](int row) { return row < SoftKeyFields::kCount; });
    QObject::connect(grid, &ctlRowGrid::MoveWanted, grid,
                     [&session, grid](int from, int to) { Move(session, *grid, from, to); });
    QWidget* bar = grid->MakeBar(
        {{kMoveUp, kMoveUpTip, "cmdUp", [grid] { grid->MoveCurrent(-1); }, Qt::ALT | Qt::Key_Up},
         {kMoveDown, kMoveDownTip, "cmdDown", [grid] { grid->MoveCurrent(1); }, Qt::ALT | Qt::Key_Down}},
        kSoftKeyHint);
    return new ctlGridPage(grid, bar);
}

}  // namespace calyx::ui
