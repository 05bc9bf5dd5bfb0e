// The rules that ports and cards keep by themselves; those between sections stand with the document.

#include <set>

#include "model/hardware/hardware.h"

namespace calyx {

namespace {

// What is wrong, in words. {1} is what the text names first.
constexpr int kLiveCard = 2920;        // {1} slot, {2} card here, {3} card there
constexpr int kNoStreamSource = 4401;  // {1} stream type
constexpr int kZeroToken = 4403;       // {1} token
constexpr int kNoTrim = 4405;          // a calibration count is zero
constexpr int kCannotStream = 4404;    // {1} input type, {2} stream type
constexpr int kStreamOff = 4409;
constexpr int kNoStreamLines = 4411;  // {1} input type
constexpr int kNoSuchCard = 4410;     // {1} slot, {2} code
constexpr int kEmptyRange = 4406;     // minimum and maximum are equal
constexpr int kNamedOff = 4407;       // {1} point, {2} alias

}  // namespace

void CHardware::AddBrokenRules(CBrokenRules& rules) const {
    for (int slot = 1; slot <= card::kSlots; ++slot) {
        const std::int32_t code = CardType(slot);
        if (card::IsEmpty(code) || code <= card::kLast) continue;
        rules.Add({std::string(Name()), slot, "HARDWARE",
                   Context().texts.Format(kNoSuchCard, {std::to_string(slot), std::to_string(code)})});
    }
    ValidateCommPorts(rules);
    ValidateAnalog(rules);
    ValidateDigital(rules);
    std::set<std::string> tables;
    for (const int slot : MemoryCards()) MemoryCard(slot).AddBrokenRules(rules, Name(), tables);
}

void CHardware::ValidateCommPorts(CBrokenRules& rules) const {
    Need("ValidateCommPorts");
    const ResourceTexts& texts = Context().texts;
    for (const int number : CommPorts()) {
        const CCommPort& port = CommPort(number);
        const PortFields& fields = port.Values();
        const auto add = [&](const char* stem, std::string words) {
            rules.Add({std::string(Name()), number, stem + std::to_string(number), std::move(words)});
        };
        // Its lines would come back as a port that streams nothing.
        if (fields.CanStream() && fields.Streams() && fields.source == 0) {
            add("EDP.STREAM#", texts.Format(kNoStreamSource, {fields.streamType.Trimmed()}));
        }
        const bool set = fields.source != 0 || fields.streamFormat.Trimmed() != "DEFAULT";
        if (!fields.CanStream() && fields.Streams()) {
            add("EDP.INPUT#",
                texts.Format(kCannotStream, {fields.inputType.Trimmed(), fields.streamType.Trimmed()}));
        } else if (!fields.CanStream() && set) {
            add("EDP.INPUT#", texts.Format(kNoStreamLines, {fields.inputType.Trimmed()}));
        } else if (!fields.Streams() && set) {
            add("EDP.STREAM#", texts.Text(kStreamOff));
        }
        // The line of this token is never read back.
        if (const std::string& token = port.Stream().Values().coz; token != "Z") {
            add("STR.ZERO#", texts.Format(kZeroToken, {token}));
        }
    }
}

void CHardware::ValidateAnalog(CBrokenRules& rules) const {
    Need("ValidateAnalog");
    for (const int number : AnalogOutputs()) {
        const AnalogFields& fields = AnalogOutput(number).Values();
        const auto add = [&](const char* stem, int text) {
            rules.Add(
                {std::string(Name()), number, stem + std::to_string(number), Context().texts.Text(text)});
        };
        // A count of zero leaves both lines out, and both come back as their initial values.
        const bool noZero = fields.zeroCal == 0, noSpan = fields.spanCal == 0;
        if (noZero || noSpan) add(noZero ? "ALG.ZERO#" : "ALG.SPAN#", kNoTrim);
        if (fields.minimum == fields.maximum) add("ALG.MAX#", kEmptyRange);
    }
}

void CHardware::ValidateDigital(CBrokenRules& rules) const {
    Need("ValidateDigital");
    for (const int number : DigitalIOs()) {
        const CDigitalIO& points = DigitalIO(number);
        for (int point = 1; point <= points.NumberOfPoints(); ++point) {
            const auto alias = points.Alias(point);
            if (alias.empty() || points.PointDefinition(point) != "OFF") continue;
            rules.Add({std::string(Name()), number,
                       "DIO." + std::to_string(point) + "#" + std::to_string(number),
                       Context().texts.Format(kNamedOff, {std::to_string(point), alias})});
        }
    }
}

CBrokenRules CHardware::ValidateLiveHardware() const {
    CBrokenRules rules;
    for (int slot = 1; slot <= card::kSlots; ++slot) {
        const auto name = [&](std::int32_t type) { return Context().texts.Text(card::Name(type)); };
        const std::string here = name(CardType(slot)), there = name(LiveCardType(slot));
        if (!DiffersFromLive(slot)) continue;
        rules.Add({std::string(Name()), slot, "HARDWARE",
                   Context().texts.Format(kLiveCard, {std::to_string(slot), here, there})});
    }
    return rules;
}

}  // namespace calyx
