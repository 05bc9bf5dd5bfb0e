#include "ui/widgets/scale_display.h"

#include "ui/form/bytes.h"

namespace calyx::ui {

namespace {

// "88888.88" shows 1234.56 as far as it has places for it; a scale without decimals 12345.
QString Sample(const QString& places) {
    constexpr QLatin1String kFigures("1234567");
    const auto point = places.indexOf(u'.');
    const auto decimals = point < 0 ? 0 : places.size() - point - 1;
    const auto whole = std::min<qsizetype>(point < 0 ? places.size() : point, 4);
    QString sample(kFigures.left(whole));
    if (decimals > 0) sample += u'.' + QString(kFigures.mid(whole, std::min<qsizetype>(decimals, 3)));
    return sample.isEmpty() ? QStringLiteral("0") : sample;
}

}  // namespace

ScaleDisplays DisplaysOf(const CScales& scales) {
    return [&scales](int number) -> ScaleDisplay {
        constexpr int kLast = 32;
        if (number < 1 || number > kLast) return {QStringLiteral("----"), {}, {}};
        const ScaleFields& fields = scales.Scale(number).Values();
        const auto text = [](std::string_view bytes) { return ToShown(bytes); };
        QString units = text(fields.priUnits.Trimmed()).toLower();
        if (units == QLatin1String("none")) units.clear();
        if (units == QLatin1String("custom")) units = text(fields.priCustomUnits.Trimmed());
        return {Sample(text(fields.priDecimalPoint.Trimmed())), units, text(fields.alias.Trimmed())};
    };
}

}  // namespace calyx::ui
