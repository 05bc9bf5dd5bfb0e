#include "ui/boxes/box_plan.h"

#include <algorithm>
#include <cmath>

#include "ui/boxes/boxes_texts.h"
#include "ui/text.h"
#include "ui/theme/metrics.h"

namespace calyx::ui {

using namespace boxes_text;

namespace {

constexpr double kTileWidth = 112, kTileHeight = metrics::kControlHeight;
constexpr double kPad = metrics::kRelated, kGap = metrics::kRelated;
constexpr double kPlatformWidth = 152, kSystemWidth = 144, kLink = 40;
constexpr double kBoxHeight = 52, kSystemHeight = 64;
constexpr double kRight = kLink + kPlatformWidth + kLink + kSystemWidth;
constexpr int kPlatformTitles = 8130;  // + number

QString Count(const ResourceTexts& texts, std::size_t count, int none, int one, int several) {
    if (count == 0) return Say(texts, none);
    return count == 1 ? Say(texts, one) : Say(texts, several, QString::number(count));
}

QString CellName(const CJunctionBox& box, int cell) {
    return Shown(box.Values().cellId[static_cast<std::size_t>(cell - 1)]);
}

// Builds a plan band by band, from the top.
class Planner {
  public:
    Planner(const CJunctionBox& box, const ResourceTexts& texts, double width, double textHeight)
        : box_(box), texts_(texts), right_(std::max(width, BoxPlan::LeastWidth()) - 1), text_(textHeight) {}

    BoxPlan Make() {
        const double lanes = right_ - kRight;
        top_ = text_ + kPad;
        plan_.lanes[0] = {kPad, 0, lanes, text_};
        plan_.lanes[1] = {lanes + kLink, 0, kPlatformWidth, text_};
        plan_.lanes[2] = {right_ - kSystemWidth, 0, kSystemWidth, text_};
        AddUnassigned();
        std::vector<BoxPlan::Part> platforms;
        for (int platform = 1; platform <= box_.MaxPlatforms(); ++platform) {
            const QRectF band = AddBand(platform, box_.PlatformLoadCells(platform), kBoxHeight);
            platforms.push_back(PlatformPart(platform, band));
        }
        const double middle = (platforms.front().rect.top() + platforms.back().rect.bottom()) / 2;
        plan_.parts.insert(plan_.parts.end(), platforms.begin(), platforms.end());
        AddSystem(middle);
        plan_.height = top_ - kGap + 3;  // room for the mark of the keyboard
        return std::move(plan_);
    }

  private:
    QRectF AddBand(int platform, const std::vector<int>& cells, double least, double title = 0) {
        const double room = right_ - kRight - 2 * kPad;
        const int across = std::max(1, static_cast<int>((room + kGap) / (kTileWidth + kGap)));
        const int rows = (static_cast<int>(cells.size()) + across - 1) / across;
        const double tiles = rows * (kTileHeight + kGap) - (rows > 0 ? kGap : 0);
        const double height = std::max(least, title + tiles + 2 * kPad);
        const QRectF band(0.5, top_ + 0.5, right_ - kRight, height);
        plan_.bands.push_back({platform, band, {}});
        const double start = title > 0 ? band.top() + kPad + title : band.center().y() - tiles / 2;
        for (std::size_t i = 0; i < cells.size(); ++i) {
            const int column = static_cast<int>(i) % across, row = static_cast<int>(i) / across;
            AddCell(cells[i], platform,
                    {band.left() + kPad + column * (kTileWidth + kGap),
                     std::round(start) + 0.5 + row * (kTileHeight + kGap), kTileWidth, kTileHeight});
        }
        top_ += height + kGap;
        return band;
    }

    void AddCell(int cell, int platform, const QRectF& rect) {
        const QString connector = Shown(box_.LoadCellConnector(cell));
        const bool twice = platform != 0 && box_.PlatformOf(cell) != platform;
        const QString number = QString::number(cell);
        QString name = CellName(box_, cell);
        const QString where =
            connector.isEmpty() ? Say(texts_, kNoConnector) : Say(texts_, kConnector, connector);
        // The name that every cell begins with says nothing.
        if (name.endsWith(QStringLiteral("Load Cell ") + number)) name.clear();
        const QString known = name.isEmpty() ? where : name + QStringLiteral(", ") + where;
        BoxPlan::Part part{.number = cell, .platform = platform, .rect = rect};
        part.name = number;
        part.words = name.isEmpty() || connector.isEmpty() ? where : name;
        part.spoken = platform == 0
                          ? Say(texts_, kCellFree, number, known)
                          : Say(texts_, kCellOn, number, known, PlatformName(box_, texts_, platform));
        part.broken = connector.isEmpty() || twice;
        plan_.parts.push_back(part);
    }

    BoxPlan::Part PlatformPart(int platform, const QRectF& band) {
        const auto cells = box_.PlatformLoadCells(platform);
        BoxPlan::Part part{.kind = BoxPlan::Kind::Platform, .number = platform};
        part.rect = {plan_.lanes[1].left() + 0.5, std::round(band.center().y() - kBoxHeight / 2) + 0.5,
                     kPlatformWidth, kBoxHeight};
        part.used = box_.IsPlatformUsedInSystem(platform);
        part.name = PlatformName(box_, texts_, platform);
        const QString count = Count(texts_, cells.size(), kNoCells, kOneCell, kCells);
        part.words = part.used ? count : count + QStringLiteral(", ") + Say(texts_, kNotInSystem);
        part.spoken = Say(texts_, part.used ? kPlatformUsed : kPlatformUnused, part.name, count);
        // A platform that is not there at all is not broken.
        part.broken = (part.used || !cells.empty()) && !box_.IsPlatformValid(platform);
        return part;
    }

    void AddUnassigned() {
        std::vector<int> cells;
        for (const int cell : box_.AllowedLoadCells()) {
            if (box_.PlatformOf(cell) == 0) cells.push_back(cell);
        }
        plan_.unassigned = static_cast<int>(cells.size());
        AddBand(0, cells, 0, text_ + (cells.empty() ? 0 : kGap));
        plan_.bands.back().title = cells.empty() ? Say(texts_, kAllAssigned)
                                                 : Say(texts_, kNotAssigned, QString::number(cells.size()));
    }

    void AddSystem(double middle) {
        BoxPlan::Part part{.kind = BoxPlan::Kind::System, .number = 1};
        part.rect = {plan_.lanes[2].left() + 0.5, std::round(middle - kSystemHeight / 2) + 0.5,
                     kSystemWidth - 1, kSystemHeight};
        part.name = Shown(box_.Values().systemName);
        part.words = Count(texts_, box_.SystemPlatforms().size(), kNoPlatforms, kOnePlatform, kPlatforms);
        part.spoken = Say(texts_, kSystemSpoken, part.name, part.words);
        part.broken = !box_.SystemPlatforms().empty() && !box_.IsSystemValid();
        plan_.parts.push_back(part);
    }

    const CJunctionBox& box_;
    const ResourceTexts& texts_;
    double right_, text_;
    double top_ = 0;
    BoxPlan plan_;
};

}  // namespace

QString PlatformName(const CJunctionBox& box, const ResourceTexts& texts, int platform) {
    const std::string& name = box.Values().platformName[static_cast<std::size_t>(platform - 1)];
    return name.empty() ? Say(texts, kPlatformTitles + platform) : Shown(name);
}

double BoxPlan::LeastWidth() {
    return 2 * kTileWidth + kGap + 2 * kPad + kRight;
}

BoxPlan BoxPlan::Of(const CJunctionBox& box, const ResourceTexts& texts, double width, double textHeight) {
    return Planner(box, texts, width, textHeight).Make();
}

int BoxPlan::Find(Kind kind, int number) const {
    const auto found = std::find_if(parts.begin(), parts.end(), [&](const Part& part) {
        return part.kind == kind && part.number == number;
    });
    return found == parts.end() ? -1 : static_cast<int>(found - parts.begin());
}

int BoxPlan::PartAt(const QPointF& point) const {
    const auto found =
        std::find_if(parts.begin(), parts.end(), [&](const Part& part) { return part.rect.contains(point); });
    return found == parts.end() ? -1 : static_cast<int>(found - parts.begin());
}

const BoxPlan::Band* BoxPlan::BandAt(const QPointF& point) const {
    for (const Band& band : bands) {
        // The box of a platform takes what is dropped on it as its band does.
        const int box = Find(Kind::Platform, band.platform);
        const bool onBox = box >= 0 && parts[static_cast<std::size_t>(box)].rect.contains(point);
        if (band.rect.contains(point) || onBox) return &band;
    }
    return nullptr;
}

int BoxPlan::Next(int part, int dx, int dy) const {
    if (part < 0 || part >= static_cast<int>(parts.size())) return parts.empty() ? -1 : 0;
    const QPointF from = parts[static_cast<std::size_t>(part)].rect.center();
    int best = part;
    double least = 0;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        const QPointF way = parts[i].rect.center() - from;
        const double along = way.x() * dx + way.y() * dy;
        const double aside = std::abs(way.x() * dy) + std::abs(way.y() * dx);
        if (along < 1 || (dy == 0 && aside > 2 * along) || (dx == 0 && aside > 4 * along)) continue;
        const double cost = along + 3 * aside;
        if (best != part && cost >= least) continue;
        best = static_cast<int>(i);
        least = cost;
    }
    return best;
}

}  // namespace calyx::ui
