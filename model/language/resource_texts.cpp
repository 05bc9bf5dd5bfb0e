#include "model/language/resource_texts.h"

#include "model/language/text.h"

namespace calyx {

namespace {

std::string Unescape(std::string_view text) {
    std::string plain;
    plain.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool lineBreak = text[i] == '\\' && i + 1 < text.size() && text[i + 1] == 'n';
        plain += lineBreak ? '\n' : text[i];
        if (lineBreak) ++i;
    }
    return plain;
}

}  // namespace

void ResourceTexts::Read(std::string_view file) {
    ForEachLine(file, [this](std::string_view line) {
        const std::size_t equals = line.find('=');
        if (line.starts_with('#') || equals == std::string_view::npos) return;
        const auto number = ReadInteger(line.substr(0, equals));
        if (number && number->whole) texts_[number->value] = Unescape(line.substr(equals + 1));
    });
}

std::string ResourceTexts::Text(int number) const {
    const auto found = texts_.find(number);
    if (found != texts_.end()) return found->second;
    std::string gap("#");
    return gap += std::to_string(number);
}

std::string ResourceTexts::Format(int number, std::initializer_list<std::string_view> arguments) const {
    const std::string pattern = Text(number);
    std::string text;
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        const bool place = pattern[i] == '{' && i + 2 < pattern.size() && pattern[i + 2] == '}' &&
                           pattern[i + 1] >= '1' && pattern[i + 1] <= '9';
        const auto index = place ? static_cast<std::size_t>(pattern[i + 1] - '1') : arguments.size();
        if (index >= arguments.size()) {
            text += pattern[i];
            continue;
        }
        text += arguments.begin()[index];
        i += 2;
    }
    return text;
}

}  // namespace calyx
