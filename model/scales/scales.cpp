#include "model/scales/scales.h"

#include <algorithm>
#include <array>
#include <optional>
#include <set>
#include <utility>

#include "model/scales/scale_checks.h"

namespace calyx {

using namespace scale_kind;

namespace {

constexpr std::string_view kKindKey = "SC.KIND#", kSourceKey = "SC.SRC#";

// What a set of changes says about a scale's kind and source.
struct Wish {
    std::optional<std::string> kind, source;
};

// The number behind the start of a key; 0 for a key that begins otherwise.
int NumberBehind(std::string_view start, std::string_view key) {
    if (!StartsNoCase(key, start)) return 0;
    const auto number = ReadInteger(key.substr(start.size()));
    return number && number->value >= 1 && number->value <= kScaleCount ? number->value : 0;
}

// An indicator tells some lines of a scale twice, as a file has them; as in a file, the first one counts.
void DropRepeated(std::vector<Change>& changes) {
    std::set<std::string> seen;
    std::erase_if(changes, [&](const Change& change) { return !seen.insert(Upper(change.key)).second; });
}

std::array<Wish, kScaleCount> WishesIn(const std::vector<Change>& changes) {
    std::array<Wish, kScaleCount> wishes;
    for (const Change& change : changes) {
        if (const int number = NumberBehind(kKindKey, change.key)) {
            wishes[static_cast<std::size_t>(number - 1)].kind = change.after.value_or("1");
        } else if (const int scale = NumberBehind(kSourceKey, change.key)) {
            wishes[static_cast<std::size_t>(scale - 1)].source = change.after.value_or("NONE");
        }
    }
    return wishes;
}

// The kind that a source makes of a scale, where the line is understood.
std::optional<std::int32_t> KindBy(ScaleFields tried, std::int32_t present, const std::string& source,
                                   bool strict) {
    tried.kind = present;
    const Taken taken = TakeSource(tried, source);
    if (taken == Taken::Not || (strict && taken != Taken::Whole)) return std::nullopt;
    return tried.kind;
}

std::int32_t KindWanted(const ScaleFields& fields, const Wish& wish, bool strict, const PortInput& inputOf) {
    if (wish.kind) {
        const auto number = ReadInteger(*wish.kind);
        const bool good = number && number->whole && IsKind(number->value);
        const std::int32_t kind = good ? number->value : fields.kind;
        return wish.source ? KindBy(fields, kind, *wish.source, strict).value_or(kind) : kind;
    }
    if (!wish.source) return fields.kind;
    const std::int32_t byPort = KindOfSource(*wish.source, inputOf);
    // As the port says, else as the scale is now, else as the form of the source suggests.
    std::optional<std::int32_t> kind;
    if (byPort != kNone) kind = KindBy(fields, byPort, *wish.source, strict);
    if (!kind) kind = KindBy(fields, fields.kind, *wish.source, strict);
    if (!kind) kind = KindBy(fields, kNone, *wish.source, strict);
    return kind.value_or(fields.kind);
}

}  // namespace

CScales::CScales(const ModelContext& context) : Section(context), lists_(context) {
    scales_.reserve(kScaleCount);
    scales_.emplace_back(context).Initialize(1);
    for (int number = 2; number <= kScaleCount; ++number) {
        scales_.emplace_back(context).InitializeLike(scales_.front(), number);
    }
}

std::vector<Item*> CScales::Items() {
    std::vector<Item*> items;
    items.reserve(scales_.size());
    for (CScale& scale : scales_) items.push_back(&scale.Parameters());
    return items;
}

void CScales::RestoreState(Dictionary& lines, ReadReport& report) {
    report.Enter(std::string(Name()));
    for (CScale& scale : scales_) scale.RestoreState(lines, report);
}

void CScales::AppendState(std::string& out) const {
    for (const CScale& scale : scales_) scale.Parameters().Append(out, Target::Everything());
}

void CScales::AppendText(std::string& out, const Target& target) const {
    for (const CScale& scale : scales_) scale.Parameters().Append(out, target, LinePart::Parameters);
}

void CScales::AppendCalibration(std::string& out, const Target& target) const {
    for (const CScale& scale : scales_) scale.Parameters().Append(out, target, LinePart::Calibration);
}

std::string CScales::GetCalibrationValues(bool allParameters) const {
    std::string text;
    AppendCalibration(text, allParameters ? Target::Everything() : Context().target.Gated());
    return text;
}

bool CScales::SendCalibrationToIndicator(ILineSender& sender, IDownload& download) const {
    return SendLines(GetCalibrationValues(false), sender, download);
}

std::string CScales::GetPrintOutput() const {
    std::string listing;
    for (const CScale& scale : scales_) listing += scale.GetPrintOutput();
    return listing.empty() ? listing : Context().texts.Text(Title()) + "\r\n" + listing;
}

std::string CScales::GetIWriteImportDef() const {
    std::string text = "-- Scale Aliases\r\n";
    for (const CScale& scale : scales_) text += scale.GetIWriteImportDef();
    return text;
}

CScale& CScales::Scale(int number) {
    return const_cast<CScale&>(std::as_const(*this).Scale(number));
}

const CScale& CScales::Scale(int number) const {
    if (number < 1 || number > kScaleCount) {
        throw Error(code::kOutOfRange, "Calyx.CScales.Scale",
                    Context().texts.Format(code::kOutOfRange, {std::to_string(number), "1 to 32"}));
    }
    return scales_[static_cast<std::size_t>(number - 1)];
}

void CScales::Prepare(std::vector<Change>& changes, Check check, const ValueOf& valueOf) {
    if (check == Check::None) return;
    if (check == Check::Lenient) DropRepeated(changes);
    const PortInput inputOf = [&](int port) {
        return valueOf ? valueOf("EDP.INPUT#" + std::to_string(port)).value_or("") : std::string();
    };
    const auto named = [&changes](std::string_view key) {
        return std::any_of(changes.begin(), changes.end(),
                           [key](const Change& change) { return EqualNoCase(change.key, key); });
    };
    const std::array<Wish, kScaleCount> wishes = WishesIn(changes);
    for (const CScale& scale : scales_) {
        const Wish& wish = wishes[static_cast<std::size_t>(scale.Number() - 1)];
        const std::int32_t kind = KindWanted(scale.Values(), wish, check == Check::Strict, inputOf);
        if (kind == scale.ScaleType()) continue;
        RowItem<ScaleFields> changed = scale.Parameters();
        ChangeKind(changed.fields, kind);
        for (std::size_t row = 0; row < changed.RowCount(); ++row) {
            const std::string before = scale.Parameters().Text(row), after = changed.Text(row);
            if (before != after && !named(changed.Key(row)))
                changes.push_back({changed.Key(row), before, after});
        }
    }
    // The kind says how the source is read.
    std::stable_partition(changes.begin(), changes.end(),
                          [](const Change& change) { return NumberBehind(kKindKey, change.key) != 0; });
}

void CScales::AddBrokenRules(CBrokenRules& rules) const {
    CheckScaleSources(*this, Context().texts, rules);
}

bool CScales::IsValid(int number) const {
    const CBrokenRules rules = BrokenRules();
    return std::none_of(rules.begin(), rules.end(),
                        [number](const BrokenRule& rule) { return rule.item == number; });
}

std::string CScales::Validate(const PortInput& inputOf) const {
    CBrokenRules rules = BrokenRules();
    CheckScalePorts(*this, inputOf, Context().texts, rules);
    std::string text;
    for (const BrokenRule& rule : rules) {
        if (!text.empty()) text += '|';
        std::string words = rule.text;  // may quote a value with a bar of its own
        std::replace(words.begin(), words.end(), '|', '/');
        text.append(words).append(" ( #").append(std::to_string(rule.item)).append(")");
    }
    return text;
}

}  // namespace calyx
