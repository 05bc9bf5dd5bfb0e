#include "model/language/list_catalogue.h"

#include <algorithm>
#include <stdexcept>

#include "model/language/text.h"

namespace calyx {

struct ListCatalogue::Draft {
    std::string name;
    std::string_view texts = {}, keys = {}, standard = {};
    int line = 0;  // of its heading
};

void ListCatalogue::Read(std::string_view file, const ResourceTexts& texts) {
    Draft draft;
    int number = 0;
    const auto refuse = [&](std::string_view line, const char* why) {
        throw std::runtime_error("list catalogue, line " + std::to_string(number) + ": \"" +
                                 std::string(line) + "\" " + why);
    };
    ForEachLine(file, [&](std::string_view line) {
        ++number;
        line = Trim(line);
        if (line.empty() || line.starts_with('#')) return;
        const std::size_t equals = line.find('=');
        const std::string_view field = line.substr(0, equals);
        if (line.starts_with('[') && line.ends_with(']')) {
            Finish(draft, texts);
            if (line == "[]") refuse(line, "has no name");
            draft = {.name = std::string(line.substr(1, line.size() - 2)), .line = number};
        } else if (!draft.name.empty() && equals != std::string_view::npos &&
                   (field == "texts" || field == "keys" || field == "default")) {
            (field == "texts"  ? draft.texts
             : field == "keys" ? draft.keys
                               : draft.standard) = line.substr(equals + 1);
        } else {
            refuse(line, "is no heading, or no texts, keys or default of a list");
        }
    });
    Finish(draft, texts);
}

void ListCatalogue::Finish(Draft& draft, const ResourceTexts& texts) {
    if (draft.name.empty()) return;
    const auto refuse = [&](const char* why) {
        throw std::runtime_error("list catalogue, line " + std::to_string(draft.line) + ": list " +
                                 draft.name + " " + why);
    };
    if (Split(draft.texts, ',').size() != Split(draft.keys, ',').size()) refuse("has not one text a key");
    CTextList list;
    list.Load(texts, draft.texts, draft.keys, ',');
    for (std::size_t i = 0; const auto& entry : list) {
        if (list.Place(entry.key) != i++) refuse("has a key twice");
    }
    if (!list.ValidateItem(draft.standard)) refuse("has a default that is not one of its keys");
    list.SetDefault(draft.standard);
    if (!lists_.emplace(draft.name, std::move(list)).second) refuse("stands there twice");
    names_.push_back(draft.name);
}

const CTextList* ListCatalogue::List(std::string_view name) const {
    const auto found = lists_.find(name);
    return found == lists_.end() ? nullptr : &found->second;
}

}  // namespace calyx
