#include "platform/standard_output.h"

#include <windows.h>

namespace calyx {

bool HasStandardOutput() {
    const HANDLE output = GetStdHandle(STD_OUTPUT_HANDLE);
    return output != nullptr && output != INVALID_HANDLE_VALUE && GetFileType(output) != FILE_TYPE_UNKNOWN;
}

}  // namespace calyx
