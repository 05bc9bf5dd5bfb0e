#include "ui/scales/scale_choices.h"

#include <QLocale>
#include <QStringList>
#include <algorithm>
#include <utility>

#include "model/scales/scale_checks.h"
#include "ui/form/words.h"
#include "ui/scales/scale_texts.h"
#include "ui/text.h"

namespace calyx::ui {

using namespace scale_kind;

namespace {

constexpr int kBoxes = 4;
constexpr std::string_view kSourceStem = "SRC";

std::string KeyOf(std::string_view stem, int scale) {
    return "SC." + std::string(stem) + "#" + std::to_string(scale);
}

std::vector<std::int32_t> Sources(const CScale& scale) {
    const auto& all = scale.Values().sources;
    return {all.begin(), all.begin() + scale.ComponentCount()};
}

bool Has(const CScale& scale, std::int32_t source) {
    const std::vector<std::int32_t> sources = Sources(scale);
    return std::find(sources.begin(), sources.end(), source) != sources.end();
}

// The words of sources, of one scale's kind.
class Wording {
  public:
    Wording(const CIndicator& document, const CScale& scale)
        : document_(document), scale_(scale), texts_(document.Context().texts) {}

    SourceChoice Choice(std::int32_t source) const {
        switch (scale_.ScaleType()) {
            case kAnalog:
            case kAnalogInput:
                return {source, QString::number(source), Channel(source)};
            case kTotal:
                return ScaleChoice(source);
            case kVexal: {
                const int port = VexalPort(source);
                const QString words =
                    WithAlias(port, Say(texts_, say::kBox, Port(port), QString::number(VexalBox(source))));
                return {source, words, Fitting(port, words)};
            }
            default: {
                const QString words = WithAlias(source, Port(source));
                return {source, words, Fitting(source, words)};
            }
        }
    }

  private:
    // With the scale that has the channel as well: mostly a mistake, at times wanted.
    QString Channel(std::int32_t channel) const {
        const QString words = Say(texts_, say::kChannel, QString::number(channel));
        for (int number = 1; number <= kScaleCount; ++number) {
            const CScale& other = document_.Scales().Scale(number);
            if (number != scale_.Number() && other.ScaleType() == scale_.ScaleType() && Has(other, channel))
                return Say(texts_, say::kAlsoInScale, words, QString::number(number));
        }
        return words;
    }
    SourceChoice ScaleChoice(std::int32_t number) const {
        const QString words = Say(texts_, say::kScaleNumber, QString::number(number));
        if (number < 1 || number > kScaleCount)
            return {number, QString::number(number), Say(texts_, say::kNotThere, words)};
        const CScale& scale = document_.Scales().Scale(number);
        if (scale.ScaleType() == kNone)
            return {number, QString::number(number), Say(texts_, say::kScaleUnset, words)};
        const QString alias = ShownValue(scale.Values().alias.Trimmed());
        if (alias.isEmpty()) return {number, QString::number(number), words};
        return {number, QString::number(number) + u' ' + alias, Say(texts_, say::kPortAlias, words, alias)};
    }
    QString Port(int port) const { return Say(texts_, say::kPort, QString::number(port)); }
    // Numbers first: they are what must be seen where room is short.
    QString WithAlias(int port, const QString& words) const {
        const std::string alias = document_.Value("EDP.ALIAS#" + std::to_string(port)).value_or("");
        return alias.empty() ? words : Say(texts_, say::kPortAlias, words, ShownValue(alias));
    }
    QString Fitting(int port, const QString& words) const {
        const std::string input = document_.Hardware().InputOf(port);
        if (input.empty()) return Say(texts_, say::kNotThere, words);
        if (KindOfInput(input) == scale_.ScaleType()) return words;
        return Say(texts_, say::kOtherInput, words, ShownValue(input));
    }

    const CIndicator& document_;
    const CScale& scale_;
    const ResourceTexts& texts_;
};

std::vector<std::int32_t> Existing(const CIndicator& document, const CScale& scale) {
    std::vector<std::int32_t> sources;
    const std::int32_t kind = scale.ScaleType();
    if (kind == kAnalog || kind == kAnalogInput) {
        for (std::int32_t channel = 1; channel <= kMostSources; ++channel) sources.push_back(channel);
    } else if (kind == kTotal) {
        for (int number = 1; number <= kScaleCount; ++number) {
            const bool other = number != scale.Number();
            if (other && CanBeAdded(document.Scales().Scale(number).ScaleType())) sources.push_back(number);
        }
    } else if (IsOnPort(kind)) {
        for (const int port : document.Hardware().CommPorts()) {
            if (KindOfInput(document.Hardware().InputOf(port)) != kind) continue;
            if (kind != kVexal) sources.push_back(port);
            for (int box = 1; kind == kVexal && box <= kBoxes; ++box)
                sources.push_back(VexalSource(port, box));
        }
    }
    return sources;
}

}  // namespace

bool TakesSeveral(std::int32_t kind) {
    return kind == kAnalog || kind == kTotal;
}

bool TakesOne(std::int32_t kind) {
    return IsOnPort(kind) || kind == kAnalogInput;
}

std::vector<SourceChoice> PresentSources(const CIndicator& document, int scale) {
    const CScale& of = document.Scales().Scale(scale);
    std::vector<SourceChoice> choices;
    for (const std::int32_t source : Sources(of)) choices.push_back(Wording(document, of).Choice(source));
    return choices;
}

std::vector<SourceChoice> OfferedSources(const CIndicator& document, int scale) {
    const CScale& of = document.Scales().Scale(scale);
    std::vector<SourceChoice> choices;
    for (const std::int32_t source : Existing(document, of)) {
        if (!Has(of, source)) choices.push_back(Wording(document, of).Choice(source));
    }
    return choices;
}

std::vector<KeyValue> SourceLines(const CScale& scale, const std::vector<std::int32_t>& sources) {
    ScaleFields fields = scale.Values();
    fields.sources = {};
    fields.sourceCount = static_cast<std::int32_t>(std::min<std::size_t>(sources.size(), kMostSources));
    std::copy_n(sources.begin(), fields.sourceCount, fields.sources.begin());
    std::string line;
    AppendSource(line, fields);
    // With the kind: of the three kinds on ports the line alone does not tell which it is.
    return {{KeyOf(kSourceStem, scale.Number()), line},
            {KeyOf("KIND", scale.Number()), std::to_string(scale.ScaleType())}};
}

std::string KeyForSources(const CIndicator& document, std::int32_t kind) {
    for (const int port : document.Hardware().CommPorts()) {
        const auto& item = document.Hardware().CommPort(port).Parameters();
        const std::string key = "EDP.INPUT#" + std::to_string(port);
        const auto row = item.Find(key);
        const CTextList* list = row ? item.List(*row) : nullptr;
        if (list != nullptr && list->ValidateItem(InputOfKind(kind))) return key;
    }
    return "HARDWARE";
}

QStringList LostByKind(const CIndicator& document, int scale, std::int32_t kind) {
    const ResourceTexts& texts = document.Context().texts;
    const RowItem<ScaleFields>& now = document.Scales().Scale(scale).Parameters();
    RowItem<ScaleFields> fresh = now, next = now;
    ChangeKind(fresh.fields, now.fields.kind);
    ChangeKind(next.fields, kind);
    if (kind == kNone) fresh.fields.alias = {};  // goes with the kind and is no value that it starts with
    QStringList lost;
    for (std::size_t row = 0; row < now.RowCount(); ++row) {
        const std::string before = now.Text(row), after = next.Text(row);
        if (!now.IsWritten(row)) continue;
        const form::Parameter parameter(now, row);
        const bool losesLine = !next.IsWritten(row) && now.Info(row).more.use == Use::Line;
        const bool isSet = before != (losesLine ? parameter.DefaultText() : fresh.Text(row));
        if (!isSet || (before == after && !losesLine)) continue;
        if (now.Info(row).stem == kSourceStem) {
            lost += Say(texts, say::kLostSource, ShownValue(SourceEntries(now.fields)));
            continue;
        }
        const auto words = [&](const std::string& text) {
            return form::ValueWords(texts, parameter, text, QLocale());
        };
        const QString caption = form::Caption(texts, parameter);
        lost += losesLine ? Say(texts, say::kLostLine, caption, words(before))
                          : Say(texts, say::kLostValue, caption, words(before), words(after));
    }
    return lost;
}

}  // namespace calyx::ui
