#pragma once

#include "model/language/item.h"

namespace calyx {

// The value lists of the junction boxes, by name from the catalogue; 20005 for one that it lacks.
class CJunctionBoxLists {
  public:
    explicit CJunctionBoxLists(const ModelContext& context) : context_(&context) {}

    const CTextList& HardwareConfigs() const { return Get("SJ.CONFIG"); }
    const CTextList& SectionTypes() const { return Get("SJ.SECTTYPE"); }
    const CTextList& DigitalIODefinitions() const { return Get("SJ.DIO"); }
    const CTextList& AnalogRanges() const { return Get("SJ.ALG.RANGE"); }
    const CTextList& PlatformCalTypes() const { return Get("SJ.PLAT.CALTYPE"); }
    const CTextList& TemperatureCompensations() const { return Get("SJ.DIAG.TEMPCOMP"); }
    const CTextList& DiagCellEmuTypes() const { return Get("SJ.DIAG.CE.TYPE"); }

  private:
    const CTextList& Get(std::string_view name) const { return *detail::NeedList(name, *context_); }

    const ModelContext* context_;
};

}  // namespace calyx
