#include "platform/settings_text.h"

#include "model/language/text.h"

namespace calyx {

namespace {

std::string Escape(std::string_view value) {
    std::string escaped;
    for (const char c : value) {
        if (c == '\\') {
            escaped += "\\\\";
        } else if (c == '\r') {
            escaped += "\\r";
        } else if (c == '\n') {
            escaped += "\\n";
        } else {
            escaped += c;
        }
    }
    return escaped;
}

// A backslash before anything else is itself: people write folders by hand.
std::string Unescape(std::string_view escaped) {
    std::string value;
    for (std::size_t i = 0; i < escaped.size(); ++i) {
        const char next = escaped[i] == '\\' && i + 1 < escaped.size() ? escaped[i + 1] : '\0';
        const bool pair = next == '\\' || next == 'r' || next == 'n';
        value += !pair ? escaped[i] : next == 'r' ? '\r' : next == 'n' ? '\n' : '\\';
        if (pair) ++i;
    }
    return value;
}

bool IsHeading(std::string_view line) {
    line = Trim(line);
    return line.starts_with('[') && line.ends_with(']');
}

}  // namespace

SettingsText::SettingsText(std::string_view file) {
    ForEachLine(file, [this](std::string_view line) { lines_.emplace_back(line); });
}

SettingsText::Place SettingsText::Find(std::string_view keyPath, std::string_view name) const {
    const std::string heading = '[' + std::string(keyPath) + ']';
    Place place{.line = lines_.size(), .section = false, .value = false};
    bool inside = false;
    for (std::size_t i = 0; i < lines_.size(); ++i) {
        const std::string_view line = lines_[i];
        if (IsHeading(line)) {
            inside = EqualNoCase(Trim(line), heading);
        } else if (inside && EqualNoCase(Trim(line.substr(0, line.find('='))), name) &&
                   line.find('=') != std::string_view::npos) {
            return {.line = i, .section = true, .value = true};
        }
        // A new value goes behind the last line of its section that is not empty.
        if (inside && !line.empty()) place = {.line = i + 1, .section = true, .value = false};
    }
    return place;
}

std::optional<std::string> SettingsText::Get(std::string_view keyPath, std::string_view name) const {
    const Place place = Find(keyPath, name);
    if (!place.value) return std::nullopt;
    const std::string_view line = lines_[place.line];
    return Unescape(line.substr(line.find('=') + 1));
}

void SettingsText::Set(std::string_view keyPath, std::string_view name, std::string_view value) {
    const Place place = Find(keyPath, name);
    std::string line = std::string(name) + '=' + Escape(value);
    if (place.value) {
        lines_[place.line] = std::move(line);
        return;
    }
    if (!place.section) {
        if (!lines_.empty()) lines_.emplace_back();
        lines_.push_back('[' + std::string(keyPath) + ']');
        lines_.push_back(std::move(line));
        return;
    }
    lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(place.line), std::move(line));
}

std::string SettingsText::Text() const {
    std::string text;
    for (const std::string& line : lines_) {
        text += line;
        text += '\n';
    }
    return text;
}

}  // namespace calyx
