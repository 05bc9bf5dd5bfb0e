#pragma once

#include <string>
#include <vector>

#include "model/document/send_steps.h"

namespace calyx {

// What a download sends: bits of a mask that is kept in the settings from one use to the next.
namespace download_option {
inline constexpr unsigned chkBase = 1;
inline constexpr unsigned chkCalibration = 2;  // only together with the base
inline constexpr unsigned chkSetpoints = 4;
inline constexpr unsigned chkWidgets = 8;
inline constexpr unsigned chkSchemas = 16;
inline constexpr unsigned chkCODFile = 32;
inline constexpr unsigned kUsual = chkBase | chkSetpoints | chkWidgets;
}  // namespace download_option

struct DownloadOptions {
    unsigned mask = download_option::kUsual;
    std::string programFile{};  // the compiled Scrivo program, for chkCODFile; blank: none
    int timeoutMs = 10'000;     // for the answer to a line, in each of its attempts
    bool haltOnError = false;
};

// One step of a download.
struct DownloadStep {
    // Which lines must be accepted for the step to succeed. WholePorts: none, but the stream of a serial port
    // goes only once all lines of its port were accepted.
    enum class Needs { Nothing, FirstLine, EveryLine, WholePorts };

    std::string status;
    std::string lines;   // each ended by a line end; blank ones are not sent
    bool probe = false;  // the indicator must be in setup mode
    Needs needs = Needs::Nothing;
    unsigned group = 0;      // the option that brings it; 0: whatever is sent
    std::string clears{};    // what the keys begin with that its first line clears; empty: nothing
    int widgetsTooMany = 0;  // the number of widgets when the indicator holds fewer
    bool parameters = true;  // its lines are parameters that can be read back, not a program
};

// The steps in sending order, the reset of the junction boxes included. Raises what reading the program
// file raises, so that nothing is sent of a download that could not be finished.
std::vector<DownloadStep> PlanDownload(const CIndicator& document, const DownloadOptions& options,
                                       const Target& target);

// All lines that a download sends, in order; nothing is sent. The probes for setup mode are left out.
std::vector<std::string> SendingOrder(const CIndicator& document, const DownloadOptions& options,
                                      const Target& target);

}  // namespace calyx
