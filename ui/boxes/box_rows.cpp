#include "ui/boxes/box_rows.h"

#include "ui/boxes/box_plan.h"
#include "ui/boxes/boxes_texts.h"
#include "ui/text.h"

namespace calyx::ui {

using namespace boxes_text;

namespace {

constexpr int kCellTitles = 8110, kPlatformTitles = 8130;  // + number
constexpr const char* kCellStems[] = {"LC.ID.",   "LC.SRLNUM.", "LC.CAPCTY.",
                                      "LC.SENS.", "LC.TRIM.",   "LC.ZERO."};
// The cells of a platform are assigned in the picture.
constexpr const char* kPlatformStems[] = {"PLAT.NAME.", "PLAT.CALTYPE.", "PLAT.CALMULT.",
                                          "PLAT.SIM.",  "PLAT.WVAL.",    "PLAT.WSPAN."};

std::string KeyOf(const std::string& stem, int number, int port) {
    return "SJ." + stem + std::to_string(number) + "#" + std::to_string(port);
}

QString LabelOf(const Item& item, const std::string& key, const ResourceTexts& texts) {
    const auto row = item.Find(key);
    return row ? Say(texts, item.Info(*row).more.label) : QString();
}

ItemRef RefOf(const CIndicator& document, int port) {
    return {std::string(document.JunctionBoxes().Name()),
            document.JunctionBoxes().Box(port).Parameters().Title(), port};
}

}  // namespace

GridSource CellRows(int port) {
    return [port](const CIndicator& document) {
        std::vector<GridRow> rows;
        if (!document.JunctionBoxes().Exists(port)) return rows;
        const ResourceTexts& texts = document.Context().texts;
        const CJunctionBox& box = document.JunctionBoxes().Box(port);
        for (int cell = 1; cell <= box.MaxLoadCells(); ++cell) {
            GridRow& row =
                rows.emplace_back(GridRow{RefOf(document, port), Say(texts, kCellTitles + cell), {}});
            for (const char* stem : kCellStems) row.cells.push_back({KeyOf(stem, cell, port), {}, {}});
            const int platform = box.PlatformOf(cell);
            const bool connected = !box.LoadCellConnector(cell).empty();
            // Leads to where cells are assigned.
            row.cells.push_back({{},
                                 platform != 0 ? PlatformName(box, texts, platform)
                                 : connected   ? Say(texts, kUnassigned)
                                               : Say(texts, kNoConnector),
                                 KeyText(KeyOf("PLAT.CELLS.", std::max(1, platform), port))});
        }
        return rows;
    };
}

QStringList CellHeadings(const DocumentSession& session) {
    const ResourceTexts& texts = session.Document().Context().texts;
    QStringList headings{Say(texts, kCellColumn)};
    for (const int heading : kCellHeadings) headings += Say(texts, heading);
    headings += Say(texts, kPlatformColumn);
    return headings;
}

GridSource PlatformRows(int port) {
    return [port](const CIndicator& document) {
        std::vector<GridRow> rows;
        if (!document.JunctionBoxes().Exists(port)) return rows;
        const ResourceTexts& texts = document.Context().texts;
        const CJunctionBox& box = document.JunctionBoxes().Box(port);
        const auto add = [&](const std::string& stem) {
            GridRow& row = rows.emplace_back(
                GridRow{RefOf(document, port), LabelOf(box.Parameters(), KeyOf(stem, 1, port), texts), {}});
            for (int platform = 1; platform <= box.MaxPlatforms(); ++platform)
                row.cells.push_back({KeyOf(stem, platform, port), {}, {}});
        };
        for (const char* stem : kPlatformStems) add(stem);
        for (int point = 1; point <= box.MaxLinearPoints(); ++point) {
            for (const char* stem : {"PLAT.WLIN.V", "PLAT.WLIN.F"}) add(stem + std::to_string(point) + ".");
        }
        return rows;
    };
}

QStringList PlatformHeadings(const DocumentSession& session) {
    const ResourceTexts& texts = session.Document().Context().texts;
    QStringList headings{Say(texts, kParameterColumn)};
    for (int platform = 1; platform <= CJunctionBox::MaxPlatforms(); ++platform)
        headings += Say(texts, kPlatformTitles + platform);
    return headings;
}

}  // namespace calyx::ui
