#include "cli/listing.h"

#include "model/language/text.h"

namespace calyx::cli {

namespace {

constexpr std::string_view kIndent = "  ";

const char* const kHead =
    "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n<style>\n"
    "body { font: 11pt/1.4 sans-serif; max-width: 48em; margin: 2em auto; padding: 0 1em; color: #222; }\n"
    "h1 { font-size: 1.5em; }\n"
    "h2 { font-size: 1.2em; border-bottom: 1px solid #999; margin-top: 2em; }\n"
    "h3 { font-size: 1em; margin-bottom: 0; }\n"
    "table { border-collapse: collapse; width: 100%; }\n"
    "th { text-align: left; font-weight: normal; width: 40%; color: #555; }\n"
    "th, td { padding: .15em .5em .15em 0; vertical-align: top; border-bottom: 1px solid #eee; }\n"
    "td { white-space: pre-wrap; overflow-wrap: anywhere; }\n"
    "tr { break-inside: avoid; }\n"
    "</style>\n";

// Characters that mean something in a page are written by name; other control characters have no place there.
std::string Escaped(std::string_view text) {
    std::string page;
    for (const char c : Utf8(text)) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '&')
            page += "&amp;";
        else if (c == '<')
            page += "&lt;";
        else if (c == '>')
            page += "&gt;";
        else if (c == '"')
            page += "&quot;";
        else
            page += byte < 0x20 || byte == 0x7F ? '?' : c;
    }
    return page;
}

}  // namespace

std::vector<ListingSection> ReadListing(std::string_view text) {
    std::vector<ListingSection> listing;
    bool begins = true;
    ForEachLine(text, [&](std::string_view line) {
        if (line.empty()) {
            begins = true;
        } else if (begins) {
            listing.push_back({std::string(line), {ListingItem{}}});
            begins = false;
        } else if (!line.starts_with(kIndent)) {
            listing.back().items.push_back({std::string(line), {}});
        } else {
            line.remove_prefix(kIndent.size());
            const std::size_t colon = line.find(": ");
            const bool labelled = colon != std::string_view::npos;
            listing.back().items.back().rows.push_back(
                {std::string(line.substr(0, colon)),
                 labelled ? std::string(line.substr(colon + 2)) : std::string()});
        }
    });
    return listing;
}

Json ListingJson(const std::vector<ListingSection>& listing) {
    Json rows = Json::array();
    for (const ListingSection& section : listing) {
        for (const ListingItem& item : section.items) {
            for (const auto& row : item.rows) {
                rows.push_back({{"section", Utf8(section.title)},
                                {"item", Utf8(item.title)},
                                {"label", Utf8(row.label)},
                                {"value", Utf8(row.value)}});
            }
        }
    }
    return rows;
}

std::string ListingHtml(const std::vector<ListingSection>& listing, std::string_view title) {
    std::string page = kHead;
    page += "<title>" + Escaped(title) + "</title>\n</head>\n<body>\n<h1>" + Escaped(title) + "</h1>\n";
    for (const ListingSection& section : listing) {
        page += "<h2>" + Escaped(section.title) + "</h2>\n";
        for (const ListingItem& item : section.items) {
            if (!item.title.empty()) page += "<h3>" + Escaped(item.title) + "</h3>\n";
            if (item.rows.empty()) continue;
            page += "<table>\n";
            for (const auto& row : item.rows) {
                page += "<tr><th>" + Escaped(row.label) + "</th><td>" + Escaped(row.value) + "</td></tr>\n";
            }
            page += "</table>\n";
        }
    }
    return page + "</body>\n</html>\n";
}

}  // namespace calyx::cli
