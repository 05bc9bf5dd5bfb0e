#pragma once

#include <string>

namespace calyx::bench {

// A configuration with everything that an indicator can be given: 32 scales of four kinds, 100 setpoints,
// 32 serial ports with their streams, all ticket formats, 300 widgets, 8 junction boxes, and the lines of
// the option cards. No single indicator has room for so many cards at once; all kinds of line are here.
// The same on every call: about 7,000 lines, each ended by CR LF.
std::string FullSizeBody();

// The body in its file, with its checksum.
std::string FullSizeFile();

}  // namespace calyx::bench
