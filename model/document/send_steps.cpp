#include "model/document/send_steps.h"

#include <algorithm>
#include <array>

#include "model/language/text.h"

namespace calyx {

namespace {

std::string TextOf(const Section& section, const Target& target) {
    std::string text;
    section.AppendText(text, target);
    return text;
}

std::string CalibrationOf(const CScales& scales, const Target& target) {
    std::string text;
    scales.AppendCalibration(text, target);
    return text;
}

std::string HardwareText(const CIndicator& document, const Target& target,
                         void (CHardware::*append)(std::string&, const Target&) const) {
    std::string text;
    (document.Hardware().*append)(text, target);
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
            return TextOf(document.JunctionBoxes(), target);
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
            return CalibrationOf(document.Scales(), target);
        case SendStep::Setpoints:
            return TextOf(document.Setpoints(), target);
        case SendStep::Widgets:
            return document.Widgets().LinesToSend(target);
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
    return document.Widgets().WidgetCount();
}

}  // namespace calyx
