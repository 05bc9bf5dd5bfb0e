#pragma once

#include <array>

#include "model/language/row.h"
#include "model/language/text.h"

namespace calyx {

// One table of a memory card. Its fields are those up to the last one with a name.
struct SchemaFields {
    static constexpr int kMostFields = 32;

    FixedText<8> name;
    std::array<FixedText<8>, kMostFields> fieldName;
    std::array<FixedText<10>, kMostFields> fieldType;
    std::array<bool, kMostFields> keyed{};

    friend bool operator==(const SchemaFields&, const SchemaFields&) = default;

    int FieldCount() const;
};

extern const RowTable<SchemaFields> kSchemaTable;

}  // namespace calyx
