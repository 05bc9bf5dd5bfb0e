#pragma once

#include "model/language/context.h"

namespace calyx {

// The value lists of the general features, by name from the catalogue.
class CGeneralLists {
  public:
    explicit CGeneralLists(const ModelContext& context) : context_(&context) {}

    const CTextList& BatchingModes() const { return Get("GEN.BATMDS"); }
    const CTextList& DateFormats() const { return Get("GEN.DTEFMTS"); }
    const CTextList& DateSeperators() const { return Get("GEN.DTESEP"); }
    const CTextList& RegulatoryModes() const { return Get("GEN.REGMDS"); }
    const CTextList& TruckModes() const { return Get("GEN.TRKMDS"); }
    const CTextList& TimeFormats() const { return Get("GEN.TIMFMTS"); }
    const CTextList& TimeSeperators() const { return Get("GEN.TIMSEP"); }
    const CTextList& DecimalFormats() const { return Get("GEN.DECFMT"); }
    const CTextList& RegWords() const { return Get("GEN.REGWORDS"); }
    const CTextList& ImageModes() const { return Get("GEN.IMAGE"); }
    const CTextList& AlibiModes() const { return Get("GEN.ALIBI"); }
    const CTextList& KeyboardLocks() const { return Get("GEN.KBDLKS"); }

  private:
    const CTextList& Get(std::string_view name) const;

    const ModelContext* context_;
};

}  // namespace calyx
