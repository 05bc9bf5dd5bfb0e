#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "model/language/change_set.h"
#include "model/tickets/tickets.h"

namespace calyx {

// Edits of whole formats, each as the changes that make one step of undo. Nothing is changed here. The values
// are a document's own, so the changes are to be taken with Section::Check::None. 10002 for a format outside
// 1 to 31.

// The key of a part ("FMT", "PORT", "VERT", "HORZ", "PRN") of a format; empty: it does not have that part.
std::string TicketKey(const CTickets& tickets, int format, std::string_view part);

// Formats as the lines of the file have them, for a clipboard.
std::string CopyTickets(const CTickets& tickets, const std::vector<int>& formats);

// Such lines, of this document or of another, put in from a format on, one format after the other. Parts that
// the format there does not have (the port of a header) are passed over.
struct PastedTickets {
    int count = 0;                // formats in the lines
    std::vector<Change> changes;  // none where there is no room for all of them
    std::size_t notTaken = 0;     // lines of formats that were not taken as given
};
PastedTickets PasteTickets(const CTickets& tickets, std::string_view lines, int first);

// Text, port, page and printer of one format for another one, as far as both have them.
std::vector<Change> CopyTicket(const CTickets& tickets, int from, int to);
// The default text; port, page and printer stay.
std::vector<Change> RestoreTicket(const CTickets& tickets, int format);

}  // namespace calyx
