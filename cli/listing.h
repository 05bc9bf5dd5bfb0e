#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "cli/json.h"

namespace calyx::cli {

// A printed listing taken apart: a section's title, below it the titles of its items and their rows.
struct ListingItem {
    std::string title;  // empty: the section's own rows
    struct Row {
        std::string label, value;
    };
    std::vector<Row> rows;
};
struct ListingSection {
    std::string title;
    std::vector<ListingItem> items;
};

// From the text of CIndicator::GetPrintOutput: a section begins after an empty line, a row is indented
// and has ": " behind its label.
std::vector<ListingSection> ReadListing(std::string_view text);

Json ListingJson(const std::vector<ListingSection>& listing);
// A page that needs nothing else; UTF-8.
std::string ListingHtml(const std::vector<ListingSection>& listing, std::string_view title);

}  // namespace calyx::cli
