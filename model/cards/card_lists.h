#pragma once

#include "model/language/context.h"

namespace calyx {

// The value lists of the option cards, from the catalogue. A list that the catalogue lacks raises 20005.
class CAnalogLists {
  public:
    explicit CAnalogLists(const ModelContext& context) : context_(&context) {}
    const CTextList& Modes() const;
    const CTextList& Offsets() const;
    const CTextList& ErrorActions() const;
    const CTextList& MinNegList() const;
    const CTextList& MaxNegList() const;

  private:
    const ModelContext* context_;
};

class CDigitalIOLists {
  public:
    explicit CDigitalIOLists(const ModelContext& context) : context_(&context) {}
    const CTextList& PointDefinitions() const;

  private:
    const ModelContext* context_;
};

class CFieldbusLists {
  public:
    explicit CFieldbusLists(const ModelContext& context) : context_(&context) {}
    const CTextList& swapByteList() const;

  private:
    const ModelContext* context_;
};

}  // namespace calyx
