#pragma once

#include "model/cards/fieldbus_cards.h"
#include "model/general/general.h"
#include "model/hardware/hardware.h"
#include "model/kept/kept_sections.h"

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

}  // namespace calyx
