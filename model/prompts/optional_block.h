#pragma once

#include "model/language/item.h"

namespace calyx {

// Blocks of lines that a file need not have. They are written once they have content: the file that was
// read holds one of their lines (the fields' `inFile`), or something was set.

// Reads such a block and notes whether the file has it.
template <class F>
void RestoreBlock(RowItem<F>& block, Dictionary& lines, ReadReport& report) {
    block.fields.inFile = false;
    for (std::size_t row = 0; row < block.RowCount(); ++row) {
        if (lines.Peek(block.Key(row)) != nullptr) block.fields.inFile = true;
    }
    block.Restore(lines, report);
}

}  // namespace calyx
