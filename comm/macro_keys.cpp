#include "comm/macro_keys.h"

#include <system_error>

#include "model/language/change_set.h"
#include "model/language/text.h"

namespace calyx {

namespace {

// A line end in a text is written "\n", a backslash "\\".
std::string Escaped(std::string_view text) {
    std::string escaped;
    for (const char c : text) {
        if (c == '\\') escaped += '\\';
        if (c == '\r') continue;
        escaped.append(c == '\n' ? "\\n" : std::string(1, c));
    }
    return escaped;
}

std::string Unescaped(std::string_view text) {
    std::string plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool escape = text[i] == '\\' && i + 1 < text.size();
        plain += !escape ? text[i] : text[i + 1] == 'n' ? '\n' : text[i + 1];
        i += escape ? 1 : 0;
    }
    return plain;
}

}  // namespace

MacroKeys LoadMacroKeys(const IFileStore& files, const std::string& path) {
    MacroKeys keys;
    std::string text;
    try {
        if (files.Look(path) != IFileStore::Found::File) return keys;
        text = files.Read(path);
    } catch (const std::system_error&) {
        return keys;
    }
    for (const KeyValue& line : ReadLines(text)) {
        // "F3.Text"
        const auto number = line.key.starts_with('F') ? ReadInteger(line.key.substr(1)) : std::nullopt;
        if (!number || number->value < 1 || number->value > static_cast<int>(keys.size())) continue;
        MacroKey& key = keys[static_cast<std::size_t>(number->value - 1)];
        const std::string name = line.key.substr(line.key.find('.') + 1);
        if (name == "Caption") key.caption = Unescaped(line.value);
        if (name == "Text") key.text = Unescaped(line.value);
        if (name == "Enter") key.sendsEnter = line.value == "True";
    }
    return keys;
}

void SaveMacroKeys(IFileStore& files, const std::string& path, const MacroKeys& keys) {
    std::string text = "[Macros]\r\n";
    for (std::size_t i = 0; i < keys.size(); ++i) {
        const std::string name = "F" + std::to_string(i + 1) + ".";
        text += name + "Caption=" + Escaped(keys[i].caption) + "\r\n" + name +
                "Text=" + Escaped(keys[i].text) + "\r\n" + name +
                "Enter=" + (keys[i].sendsEnter ? "True" : "False") + "\r\n";
    }
    files.Replace(path, text);
}

}  // namespace calyx
