#pragma once

#include "model/language/context.h"

namespace calyx {

// The value lists of the setpoints, by name from the catalogue. A list that the catalogue lacks raises
// 20005.
class CSetpointLists {
  public:
    explicit CSetpointLists(const ModelContext& context) : context_(&context) {}

    const CTextList& Kinds() const { return Get("SP.KINDS"); }
    const CTextList& AccessTypes() const { return Get("SP.ACCESS"); }
    const CTextList& EnabledTypes() const { return Get("SP.ENABLE"); }
    const CTextList& PushAccumTypes() const { return Get("SP.PSHACCM"); }
    const CTextList& PushPrintTypes() const { return Get("SP.PSHPRINT"); }
    const CTextList& SenseTypes() const { return Get("SP.SENSE"); }
    const CTextList& PreactTypes() const { return Get("SP.PREACT"); }
    const CTextList& TripTypes() const { return Get("SP.TRIP"); }
    const CTextList& BandTripTypes() const { return Get("SP.TRIP.BAND"); }  // for pulse rates

  private:
    const CTextList& Get(std::string_view name) const;

    const ModelContext* context_;
};

}  // namespace calyx
