#include "model/document/send_steps.h"

#include <algorithm>
#include <array>

#include "model/language/text.h"

namespace calyx {

namespace {

// Firmware before 3.01 holds 128 widgets.
constexpr std::size_t kOldWidgetLimit = 128;

std::string TextOf(const Section& section, const Target& target) {
    std::string text;
    section.AppendText(text, target);
    return text;
}

std::string HardwareText(const CIndicator& document, const Target& target,
                         void (CHardware::*append)(std::string&, const Target&) const) {
    std::string text;
    (document.Hardware().*append)(text, target);
    return text;
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
            return HardwareText(document, target, &CHardware::AppendPorts);
        case SendStep::Fieldbus:
            return TextOf(document.FieldbusCards(), target);
        case SendStep::Vexals:
            return VexalPorts(document).empty() ? std::string() : TextOf(document.JunctionBoxes(), target);
        case SendStep::Features:
            return TextOf(document.General(), target) + TextOf(document.CustomParms(), target);
        case SendStep::DigitalIO:
            return HardwareText(document, target, &CHardware::AppendDigitalIO);
        case SendStep::Analog:
            return HardwareText(document, target, &CHardware::AppendAnalog);
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
            return HardwareText(document, target, &CHardware::AppendDatabase);
    }
    return {};
}

std::vector<int> VexalPorts(const CIndicator& document) {
    std::vector<int> ports = document.Hardware().CommPorts();
    std::erase_if(ports, [&](int port) { return document.Hardware().InputOf(port) != "VEXAL"; });
    return ports;
}

int WidgetCount(const CIndicator& document) {
    return static_cast<int>(document.Widgets().Lines().size());
}

}  // namespace calyx
