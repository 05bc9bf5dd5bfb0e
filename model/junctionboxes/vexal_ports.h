#pragma once

#include <vector>

#include "model/language/dictionary.h"

namespace calyx {

// The serial ports of a file that exist and whose input type is a junction box link, ascending: 1 to 4 of
// the main board, two for each dual serial card.
std::vector<int> VexalPorts(const Dictionary& lines);
bool IsVexal(std::string_view inputType);

}  // namespace calyx
