#include "model/document/send_steps.h"

#include <algorithm>
#include <array>

#include "model/language/text.h"

namespace calyx {

namespace {

using namespace std::string_view_literals;

// Firmware before 3.01 holds 128 widgets.
constexpr std::size_t kOldWidgetLimit = 128;

std::string TextOf(const Section& section, const Target& target) {
    std::string text;
    section.AppendText(text, target);
    return text;
}

template <std::size_t N>
std::string Part(const KeptSection& section, const std::array<std::string_view, N>& starts) {
    return section.LinesOf(starts);
}

std::string WidgetLines(const CWidgets& widgets, const Target& target) {
    std::string text = "WDGT.CLR\r\n";
    const auto& lines = widgets.Lines();
    const std::size_t count =
        target.Opens(Since("3.01.")) ? lines.size() : std::min(lines.size(), kOldWidgetLimit);
    for (std::size_t i = 0; i < count; ++i)
        text.append(lines[i].key).append("=").append(lines[i].value).append("\r\n");
    return text;
}

}  // namespace

std::string LinesOf(const CIndicator& document, SendStep step, const Target& target) {
    switch (step) {
        case SendStep::Scales:
            return TextOf(document.Scales(), target);
        case SendStep::Communications:
            return Part(document.Hardware(), std::array{"EDP."sv, "STR."sv});
        case SendStep::Fieldbus:
            return TextOf(document.FieldbusCards(), target);
        case SendStep::Vexals:
            return VexalPorts(document).empty() ? std::string() : TextOf(document.JunctionBoxes(), target);
        case SendStep::Features:
            return TextOf(document.General(), target) + TextOf(document.CustomParms(), target);
        case SendStep::DigitalIO:
            return Part(document.Hardware(), std::array{"DIO."sv});
        case SendStep::Analog:
            return Part(document.Hardware(), std::array{"ALG."sv});
        case SendStep::Prompts:
            return TextOf(document.Prompts(), target);
        case SendStep::Tickets:
            return TextOf(document.Tickets(), target);
        case SendStep::Calibration:
            return document.Scales().GetCalibrationValues();
        case SendStep::Setpoints:
            return TextOf(document.Setpoints(), target);
        case SendStep::Widgets:
            return WidgetLines(document.Widgets(), target);
        case SendStep::Database:
            return Part(document.Hardware(), std::array{"DB."sv});
    }
    return {};
}

std::vector<int> VexalPorts(const CIndicator& document) {
    constexpr std::string_view kInput = "EDP.INPUT#";
    std::vector<int> ports;
    for (const KeyValue& line : document.Hardware().Lines()) {
        if (!StartsNoCase(line.key, kInput) || Upper(Trim(line.value)) != "VEXAL") continue;
        const auto port = ReadInteger(std::string_view(line.key).substr(kInput.size()));
        if (port && port->value >= 1 && port->value <= 32) ports.push_back(port->value);
    }
    std::sort(ports.begin(), ports.end());
    return ports;
}

int WidgetCount(const CIndicator& document) {
    return static_cast<int>(document.Widgets().Lines().size());
}

}  // namespace calyx
