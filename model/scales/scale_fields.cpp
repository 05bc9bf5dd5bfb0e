#include "model/scales/scale_fields.h"

namespace calyx {

void ChangeKind(ScaleFields& fields, std::int32_t kind) {
    const bool analogInput = kind == scale_kind::kAnalogInput;
    fields.kind = kind;
    fields.sources = {};
    fields.sourceCount = 0;
    if (kind == scale_kind::kProgrammable) {
        fields.sources[0] = fields.number;
        fields.sourceCount = 1;
    }
    fields.grads = analogInput ? 1000 : 10000;
    fields.spanCount.Assign(analogInput ? "63840" : "0");
    fields.zeroCount.Assign(analogInput ? "33229" : "0");
    fields.testWeight.Assign(analogInput ? "5.0" : "0");
    if (kind == scale_kind::kNone) fields.alias = {};
}

}  // namespace calyx
