#include "model/general/general_lists.h"

#include <stdexcept>

namespace calyx {

const CTextList& CGeneralLists::Get(std::string_view name) const {
    const CTextList* list = catalogue_->List(name);
    if (list == nullptr) throw std::runtime_error("list catalogue: no list " + std::string(name));
    return *list;
}

}  // namespace calyx
