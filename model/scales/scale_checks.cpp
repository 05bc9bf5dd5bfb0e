#include "model/scales/scale_checks.h"

#include <array>

#include "model/scales/scales.h"

namespace calyx {

using namespace scale_kind;

namespace {

constexpr int kTotalOfOthers = 3401;
constexpr int kCircle = 3402;
constexpr int kNotConfigured = 3403;  // {1} scale
constexpr int kNoSuchScale = 3404;    // {1} scale
constexpr int kNoSource = 3405;
constexpr int kNoPort = 3406;      // {1} port
constexpr int kWrongInput = 3407;  // {1} port, {2} its input type, {3} the one needed
constexpr int kOtherKind = 3411;   // as above, {4} what the scale would come back as
constexpr int kAliasLabel = 3021;
constexpr int kAliasUnsaved = 40104;  // {1} label, {2} alias

BrokenRule RuleOf(const CScale& scale, std::string text, const char* stem = "SRC") {
    return {"scales", scale.Number(), "SC." + std::string(stem) + "#" + std::to_string(scale.Number()),
            std::move(text)};
}

bool IsScale(std::int32_t number) {
    return number >= 1 && number <= kScaleCount;
}

// Walks down the totals below a scale and looks for itself.
class Circle {
  public:
    explicit Circle(const CScales& scales) : scales_(scales) {}

    bool Leads(int from, int to) {
        const CScale& scale = scales_.Scale(from);
        if (scale.ScaleType() != kTotal) return false;
        for (int place = 1; place <= scale.ComponentCount(); ++place) {
            const std::int32_t source = scale.Components(place);
            if (source == to) return true;
            if (!IsScale(source) || seen_[static_cast<std::size_t>(source - 1)]) continue;
            seen_[static_cast<std::size_t>(source - 1)] = true;
            if (Leads(source, to)) return true;
        }
        return false;
    }

  private:
    const CScales& scales_;
    std::array<bool, kScaleCount> seen_{};
};

void CheckTotal(const CScales& scales, const CScale& total, const ResourceTexts& texts, CBrokenRules& rules) {
    bool others = false;
    for (int place = 1; place <= total.ComponentCount(); ++place) {
        const std::int32_t source = total.Components(place);
        const std::int32_t kind = IsScale(source) ? scales.Scale(source).ScaleType() : kNone;
        if (kind == kNone) {
            rules.Add(RuleOf(total, texts.Format(IsScale(source) ? kNotConfigured : kNoSuchScale,
                                                 {std::to_string(source)})));
        }
        others = others || (IsScale(source) && !CanBeAdded(kind));
    }
    if (others) rules.Add(RuleOf(total, texts.Text(kTotalOfOthers)));
    if (Circle(scales).Leads(total.Number(), total.Number())) rules.Add(RuleOf(total, texts.Text(kCircle)));
}

}  // namespace

bool CanBeAdded(std::int32_t kind) {
    return kind == kAnalog || kind == kIndustrial || kind == kVexal;
}

void CheckScaleSources(const CScales& scales, const ResourceTexts& texts, CBrokenRules& rules) {
    for (int number = 1; number <= kScaleCount; ++number) {
        const CScale& scale = scales.Scale(number);
        if (scale.ScaleType() == kNone) {
            const std::string_view alias = scale.Values().alias.Trimmed();
            if (!alias.empty()) {
                rules.Add(
                    RuleOf(scale, texts.Format(kAliasUnsaved, {texts.Text(kAliasLabel), alias}), "ALIAS"));
            }
            continue;
        }
        if (scale.ComponentCount() == 0) rules.Add(RuleOf(scale, texts.Text(kNoSource)));
        if (scale.ScaleType() == kTotal) CheckTotal(scales, scale, texts, rules);
    }
}

void CheckScalePorts(const CScales& scales, const PortInput& inputOf, const ResourceTexts& texts,
                     CBrokenRules& rules) {
    for (int number = 1; number <= kScaleCount; ++number) {
        const CScale& scale = scales.Scale(number);
        const std::int32_t kind = scale.ScaleType();
        if (!IsOnPort(kind) || scale.ComponentCount() == 0) continue;
        const int port = kind == kVexal ? VexalPort(scale.Components(1)) : scale.Components(1);
        const std::string input = inputOf(port);
        const std::int32_t readAs = KindOfInput(input);
        if (readAs == kind) continue;
        if (input.empty()) {
            rules.Add(RuleOf(scale, texts.Format(kNoPort, {std::to_string(port)})));
            continue;
        }
        const std::string* name = scales.Lists().Kinds().Item(std::to_string(readAs));
        rules.Add(RuleOf(scale, texts.Format(readAs == kNone ? kWrongInput : kOtherKind,
                                             {std::to_string(port), input, InputOfKind(kind),
                                              name == nullptr ? std::string_view() : *name})));
    }
}

}  // namespace calyx
