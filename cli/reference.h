#pragma once

#include <string>
#include <vector>

#include "model/language/context.h"

namespace calyx::cli {

// One parameter as the reference shows it, taken from its row.
struct Parameter {
    std::string section, sectionTitle;
    std::string heading;  // on the editor page; empty: the page does not show it
    std::string key;      // "SC.GRADS#n": n is the item's number
    std::string label, help;
    std::string form;  // "whole number", "text, up to 8 characters"
    std::string range, unit;
    std::string list;  // name in the catalogue
    struct Word {
        std::string key, text;
    };
    std::vector<Word> words;
    std::string initial;   // what a new configuration has
    std::string firmware;  // the versions that receive it, in words
};

// What a value without a list is: "whole number, 0 to 255 ms", "whole number (bytes)".
std::string ValueWords(const Parameter& parameter);

// Every parameter of the sections that have rows, in the order of the file's sections and their rows.
std::vector<Parameter> CollectReference(const ModelContext& context);

// The reference as a document, by section and page heading.
std::string ReferenceMarkdown(const std::vector<Parameter>& parameters);

}  // namespace calyx::cli
