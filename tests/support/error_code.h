#pragma once

#include "model/language/error.h"

namespace calyx::test {

// The code of the numbered error that an operation raises; 0: none.
template <class Operation>
int CodeOf(Operation&& operation) {
    try {
        operation();
    } catch (const Error& error) {
        return error.Code();
    }
    return 0;
}

}  // namespace calyx::test
