#pragma once

#include <array>
#include <vector>

#include "model/cards/fieldbus_cards.h"
#include "model/general/general.h"
#include "model/hardware/hardware.h"
#include "model/junctionboxes/junction_boxes.h"
#include "model/prompts/custom_parms.h"
#include "model/prompts/prompts.h"
#include "model/scales/scales.h"
#include "model/setpoints/setpoints.h"
#include "model/tickets/tickets.h"
#include "model/widgets/widgets.h"

namespace calyx {

// The ten sections of a document.
struct DocumentSections {
    explicit DocumentSections(const ModelContext& context)
        : general(context),
          prompts(context),
          scales(context),
          hardware(context),
          tickets(context),
          widgets(context),
          setpoints(context),
          customParms(context),
          junctionBoxes(context),
          fieldbusCards(context) {}

    CGeneral general;
    CPrompts prompts;
    CScales scales;
    CHardware hardware;
    CTickets tickets;
    CWidgets widgets;
    CSetpoints setpoints;
    CCustomParms customParms;
    CJunctionBoxes junctionBoxes;
    CFieldbusCards fieldbusCards;
};

// In the order of the file body.
std::array<Section*, 10> InBodyOrder(DocumentSections& sections);
// The serial ports that a junction box is on, ascending.
std::vector<int> BoxPorts(const DocumentSections& sections);

}  // namespace calyx
