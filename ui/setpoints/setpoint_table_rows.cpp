#include "ui/setpoints/setpoint_table_rows.h"

#include <algorithm>
#include <array>
#include <map>

#include "model/setpoints/setpoint_batch.h"
#include "model/setpoints/setpoint_sentence.h"
#include "ui/setpoints/setpoint_texts.h"
#include "ui/text.h"

namespace calyx::ui {

namespace {

constexpr std::array<std::string_view, 8> kStems{"ALIAS", "KIND",  "SOURCE", "VALUE",
                                                 "TRIP",  "DSLOT", "DIGOUT", "BATCH"};

// "3" for a step, "3 to 5" for what runs beside steps.
QString PlaceWords(const ResourceTexts& texts, const BatchPlace& place) {
    const auto number = [](int at) { return at == 0 ? QStringLiteral("?") : QString::number(at); };
    if (place.isStep) return number(place.first);
    return Say(texts, say::kBesideSteps, number(place.first), number(place.last));
}

class Rows {
  public:
    Rows(const CIndicator& document, const SetpointFilter& filter)
        : document_(document), filter_(filter), texts_(document.Context().texts) {}

    std::vector<GridRow> Make() {
        const std::vector<BatchPlace> order = BatchOrder(document_.Setpoints());
        std::vector<int> numbers;
        for (const BatchPlace& place : order) {
            places_[place.number] = place;
            if (filter_.batchOrder) numbers.push_back(place.number);
        }
        for (int number = 1; number <= kSetpoints && !filter_.batchOrder; ++number) numbers.push_back(number);
        std::vector<GridRow> rows;
        for (const int number : numbers) {
            GridRow row = Row(number);
            if (number == filter_.stays || Fits(number, row)) rows.push_back(std::move(row));
        }
        return rows;
    }

  private:
    GridRow Row(int number) const {
        constexpr int kSetpointTitle = 3500;
        GridRow row{{"setpoints", kSetpointTitle, number}, QString::number(number), {}};
        const auto place = places_.find(number);
        row.cells.push_back({{}, place == places_.end() ? QString() : PlaceWords(texts_, place->second), {}});
        for (const std::string_view stem : kStems) row.cells.push_back({SetpointKey(stem, number), {}, {}});
        const CSetpoint& setpoint = document_.Setpoints().Item(number);
        const bool off = setpoint.Values().IsOff();
        row.cells.push_back({{}, off ? QString() : Shown(SetpointSentence(setpoint, texts_)), {}});
        return row;
    }

    bool Fits(int number, const GridRow& row) const {
        const CSetpoint& setpoint = document_.Setpoints().Item(number);
        const SetpointFields& fields = setpoint.Values();
        if (filter_.kind != 0 && setpoint.Kind() != filter_.kind) return false;
        if (filter_.onlyUsed && fields.IsOff()) return false;
        if (filter_.onlyBatch && !places_.contains(number)) return false;
        if (filter_.text.isEmpty()) return true;
        const auto has = [&](const QString& words) {
            return words.contains(filter_.text, Qt::CaseInsensitive);
        };
        if (has(row.title) || has(row.cells.back().words)) return true;
        const auto& item = setpoint.Parameters();
        return std::any_of(kStems.begin(), kStems.end(), [&](std::string_view stem) {
            const auto of = item.Find(SetpointKey(stem, number));
            return HasSetpointLine(fields, stem) && of && has(ShownValue(DisplayText(item, *of)));
        });
    }

    const CIndicator& document_;
    const SetpointFilter& filter_;
    const ResourceTexts& texts_;
    std::map<int, BatchPlace> places_;  // by number
};

}  // namespace

std::vector<GridRow> SetpointRows(const CIndicator& document, const SetpointFilter& filter) {
    return Rows(document, filter).Make();
}

QStringList SetpointHeadings(const ResourceTexts& texts) {
    QStringList headings;
    for (const int text : {say::kColumnNumber, say::kColumnStep, say::kColumnAlias, say::kColumnKind,
                           say::kColumnSource, say::kColumnValue, say::kColumnTrip, say::kColumnSlot,
                           say::kColumnOutput, say::kColumnBatch, say::kColumnSentence})
        headings += Say(texts, text);
    return headings;
}

}  // namespace calyx::ui
