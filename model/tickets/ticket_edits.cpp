#include "model/tickets/ticket_edits.h"

#include <map>
#include <optional>
#include <utility>

namespace calyx {

namespace {

// The values of a format by the name of their part.
using Parts = std::map<std::string_view, std::string>;

// Headers and the audit format have a single part, and their stem is its whole key.
std::string_view PartOf(std::string_view stem) {
    if (stem.starts_with("HDRFMT")) return "FMT";
    if (stem == "AUD.PORT") return "PORT";
    return stem.substr(0, stem.find('#'));
}

const Item& FormatAt(const CTickets& tickets, int format) {
    static_cast<void>(tickets.TicketFormat(format));  // raises for a format that does not exist
    return *tickets.Items()[static_cast<std::size_t>(format - 1)];
}

Parts PartsOf(const Item& format) {
    Parts parts;
    for (std::size_t row = 0; row < format.RowCount(); ++row) {
        if (format.Info(row).more.use == Use::Line) parts[PartOf(format.Info(row).stem)] = format.Text(row);
    }
    return parts;
}

// Answers how many of the values were not taken as given.
std::size_t AddChanges(std::vector<Change>& changes, const Item& format, Parts wanted) {
    std::size_t notTaken = 0;
    for (std::size_t row = 0; row < format.RowCount(); ++row) {
        if (format.Info(row).more.use != Use::Line) continue;
        auto value = wanted.extract(PartOf(format.Info(row).stem));
        if (value.empty()) continue;
        const auto after = format.Clone();
        if (after->Take(row, value.mapped()) != Taken::Whole) ++notTaken;
        std::string before = format.Text(row), text = after->Text(row);
        if (before != text) changes.push_back({format.Key(row), std::move(before), std::move(text)});
    }
    return notTaken + wanted.size();
}

}  // namespace

std::string TicketKey(const CTickets& tickets, int format, std::string_view part) {
    const Item& item = FormatAt(tickets, format);
    for (std::size_t row = 0; row < item.RowCount(); ++row) {
        const RowInfo& info = item.Info(row);
        if (info.more.use == Use::Line && PartOf(info.stem) == part) return item.Key(row);
    }
    return {};
}

std::string CopyTickets(const CTickets& tickets, const std::vector<int>& formats) {
    std::string lines;
    for (const int format : formats) FormatAt(tickets, format).Append(lines, Target::Everything());
    return lines;
}

PastedTickets PasteTickets(const CTickets& tickets, std::string_view lines, int first) {
    FormatAt(tickets, first);
    std::map<int, Parts> given;
    for (const KeyValue& line : ReadLines(lines)) {
        for (const Item* format : tickets.Items()) {
            const auto row = format->Find(line.key);
            // Of a key that occurs twice the first counts, as in a file.
            if (row) given[format->Number()].emplace(PartOf(format->Info(*row).stem), line.value);
        }
    }
    PastedTickets pasted{static_cast<int>(given.size()), {}, 0};
    if (first + pasted.count - 1 > kTicketFormats) return pasted;
    int to = first;
    for (auto& [number, parts] : given)
        pasted.notTaken += AddChanges(pasted.changes, FormatAt(tickets, to++), std::move(parts));
    return pasted;
}

std::vector<Change> CopyTicket(const CTickets& tickets, int from, int to) {
    std::vector<Change> changes;
    AddChanges(changes, FormatAt(tickets, to), PartsOf(FormatAt(tickets, from)));
    return changes;
}

std::vector<Change> RestoreTicket(const CTickets& tickets, int format) {
    std::vector<Change> changes;
    AddChanges(changes, FormatAt(tickets, format), {{"FMT", std::string(DefaultTicketText(format))}});
    return changes;
}

}  // namespace calyx
