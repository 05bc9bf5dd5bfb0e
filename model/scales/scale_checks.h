#pragma once

#include <cstdint>

#include "model/language/broken_rules.h"
#include "model/language/resource_texts.h"
#include "model/scales/scale_source.h"

namespace calyx {

class CScales;

// Whether a total can add scales of this kind.
bool CanBeAdded(std::int32_t kind);

// What is wrong with the sources of scales among themselves: none at all, scales that are not there or
// that a total cannot add, totals in a circle. And an alias that has no line, since its scale is not
// configured.
void CheckScaleSources(const CScales& scales, const ResourceTexts& texts, CBrokenRules& rules);

// Serial scales on ports that do not exist or have another input type than the kind needs: read from
// the file again, such a scale is not configured, or of another kind.
void CheckScalePorts(const CScales& scales, const PortInput& inputOf, const ResourceTexts& texts,
                     CBrokenRules& rules);

}  // namespace calyx
