#pragma once

#include <span>
#include <string>
#include <vector>

#include "model/document/indicator.h"

namespace calyx {

// The parts in which a download sends the document, in sending order.
enum class SendStep {
    Scales,
    Communications,  // serial ports and their streams
    Fieldbus,
    Vexals,  // junction boxes; nothing unless a port is set to them
    Features,
    DigitalIO,
    Analog,
    Prompts,
    Tickets,
    Calibration,  // calibration lines of the scales
    Setpoints,
    Widgets,  // "WDGT.CLR" first
    Database,
};

// The lines of a step for a target, each ended by CR LF. Empty: nothing to send.
std::string LinesOf(const CIndicator& document, SendStep step, const Target& target);

// Serial ports that a junction box is on, ascending.
std::vector<int> VexalPorts(const CIndicator& document);
// Number of display widgets.
int WidgetCount(const CIndicator& document);

}  // namespace calyx
