#include "model/cards/card_lists.h"

#include "model/language/item.h"

namespace calyx {

const CTextList& CAnalogLists::Modes() const {
    return *detail::NeedList("ALG.SOURCES", *context_);
}
const CTextList& CAnalogLists::Offsets() const {
    return *detail::NeedList("ALG.OFFSETS", *context_);
}
const CTextList& CAnalogLists::ErrorActions() const {
    return *detail::NeedList("ALG.ERRACTS", *context_);
}
const CTextList& CAnalogLists::MinNegList() const {
    return *detail::NeedList("ALG.MINNEG", *context_);
}
const CTextList& CAnalogLists::MaxNegList() const {
    return *detail::NeedList("ALG.MAXNEG", *context_);
}
const CTextList& CDigitalIOLists::PointDefinitions() const {
    return *detail::NeedList("DIO.POINTS", *context_);
}
const CTextList& CFieldbusLists::swapByteList() const {
    return *detail::NeedList("FB.BYTESWAP", *context_);
}

}  // namespace calyx
