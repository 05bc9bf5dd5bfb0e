#include "ui/link/differences.h"

#include "comm/comparison.h"

namespace calyx::ui {

namespace {

// All that has parameters; the program file has none.
constexpr unsigned kEverything = download_option::chkBase | download_option::chkCalibration |
                                 download_option::chkSetpoints | download_option::chkWidgets |
                                 download_option::chkSchemas;

}  // namespace

std::vector<KeyValue> SentLines(const CIndicator& document, const Target& target) {
    return calyx::SentLines(document, kEverything, target);
}

}  // namespace calyx::ui
