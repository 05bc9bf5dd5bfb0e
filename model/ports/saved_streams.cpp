#include "model/ports/saved_streams.h"

#include <algorithm>
#include <array>
#include <system_error>

#include "model/language/error.h"
#include "model/language/reason.h"
#include "model/language/text.h"
#include "model/ports/stream.h"

namespace calyx {

namespace {

constexpr std::string_view kNewFile = ";This file contains the stream formats for various indicators\r\n";
constexpr int kNameRule = 4301;  // what a name may be

using Token = std::string StreamFields::*;
struct TextKey {
    std::string_view key;
    Token token;
};
constexpr std::array kTextKeys{TextKey{"Gross", &StreamFields::gross},
                               TextKey{"Net", &StreamFields::net},
                               TextKey{"Tare", &StreamFields::tare},
                               TextKey{"Invalid", &StreamFields::invalid},
                               TextKey{"Motion", &StreamFields::motion},
                               TextKey{"Range", &StreamFields::range},
                               TextKey{"OK", &StreamFields::ok},
                               TextKey{"COZ", &StreamFields::coz},
                               TextKey{"Primary", &StreamFields::primary},
                               TextKey{"Secondary", &StreamFields::secondary},
                               TextKey{"Tertiary", &StreamFields::tertiary},
                               TextKey{"SFMT", &StreamFields::format}};

// The sign itself, "S" for a blank, nothing for none.
std::string SignText(int code, char sign) {
    return code == 1 ? std::string(1, sign) : std::string(code == 2 ? "S" : "");
}
std::int32_t SignCode(std::string_view text, char sign) {
    if (text.size() == 1 && text[0] == sign) return 1;
    return text == "S" ? 2 : 3;
}

std::optional<std::string_view> Heading(std::string_view line) {
    line = Trim(line);
    if (line.size() < 2 || line.front() != '[' || line.back() != ']') return std::nullopt;
    return line.substr(1, line.size() - 2);
}

// The text with the section's lines replaced; at its end when there was no such section. What people wrote
// between the lines of a section that is replaced stays behind the new ones.
std::string WithSection(std::string_view text, std::string_view name, std::string_view replacement) {
    std::string result;
    bool inside = false, placed = false;
    ForEachLine(text, [&](std::string_view line) {
        if (const auto heading = Heading(line)) {
            inside = EqualNoCase(*heading, name);
            if (inside && !placed) result += replacement;
            placed = placed || inside;
        }
        const std::string_view trimmed = Trim(line);
        const bool remark = trimmed.empty() || trimmed.front() == ';' || trimmed.front() == '#';
        if (!inside || (remark && !replacement.empty())) result.append(line).append("\r\n");
    });
    if (!placed) result += replacement;
    return result;
}

std::string SectionText(const std::string& name, const StreamFields& stream) {
    std::string text = "[" + name + "]\r\nName=" + name + "\r\nPositive=" + SignText(stream.positive, '+') +
                       "\r\nNegative=" + SignText(stream.negative, '-') + "\r\n";
    for (const auto& [key, token] : kTextKeys) {
        text.append(key).append("=").append(stream.*token).append("\r\n");
    }
    return text;
}

StreamFields InitialStream(const ModelContext& context) {
    CStream fresh(context);
    fresh.Initialize(1);
    return fresh.Values();
}

void TakeLine(StreamFields& stream, std::string_view key, std::string_view value) {
    if (EqualNoCase(key, "Positive")) stream.positive = SignCode(value, '+');
    if (EqualNoCase(key, "Negative")) stream.negative = SignCode(value, '-');
    for (const auto& [name, token] : kTextKeys) {
        if (!EqualNoCase(key, name)) continue;
        const bool isFormat = token == &StreamFields::format;
        const std::size_t width = isFormat ? StreamFields::kFormatWidth : StreamFields::kTokenWidth;
        stream.*token = value.substr(0, width);
        if (!isFormat && value.empty()) stream.*token = " ";
    }
}

}  // namespace

std::vector<std::string> SavedStreams::Names() const {
    std::vector<std::string> names;
    ForEachLine(Read(), [&](std::string_view line) {
        if (const auto heading = Heading(line)) names.emplace_back(*heading);
    });
    return names;
}

bool SavedStreams::Has(std::string_view name) const {
    const std::string section = SectionName(name);
    const auto names = Names();
    return std::any_of(names.begin(), names.end(),
                       [&](const std::string& one) { return EqualNoCase(one, section); });
}

std::optional<StreamFields> SavedStreams::Load(std::string_view name) const {
    const std::string section = SectionName(name);
    std::optional<StreamFields> stream;
    bool inside = false;
    ForEachLine(Read(), [&](std::string_view line) {
        if (const auto heading = Heading(line)) {
            inside = EqualNoCase(*heading, section);
            if (inside && !stream) stream = InitialStream(*context_);  // for keys that are missing
            return;
        }
        const std::size_t equals = line.find('=');
        if (inside && equals != std::string_view::npos) {
            TakeLine(*stream, Trim(line.substr(0, equals)), line.substr(equals + 1));
        }
    });
    return stream;
}

void SavedStreams::Save(std::string_view name, const StreamFields& stream) {
    const std::string section = SectionName(name);
    Write(WithSection(Read(), section, SectionText(section, stream)));
}

void SavedStreams::Remove(std::string_view name) {
    Write(WithSection(Read(), SectionName(name), {}));
}

std::string SavedStreams::Read() const {
    try {
        if (context_->files->Look(path_) == IFileStore::Found::Nothing) Write(std::string(kNewFile));
        return context_->files->Read(path_);
    } catch (const std::system_error& failure) {
        throw Error(code::kFileNotReadable, "Calyx.CStream.SavedStreams",
                    context_->texts.Format(code::kFileNotReadable, {path_, Reason(failure)}));
    }
}

void SavedStreams::Write(const std::string& text) const {
    try {
        context_->files->Replace(path_, text);
    } catch (const std::system_error& failure) {
        throw Error(code::kFileNotWritten, "Calyx.CStream.SavedStreams",
                    context_->texts.Format(code::kFileNotWritten, {path_, Reason(failure)}));
    }
}

std::string SavedStreams::SectionName(std::string_view name) const {
    const std::string_view trimmed = Trim(Trim(name).substr(0, kNameWidth));
    if (!trimmed.empty() && trimmed.find_first_of("[]\r\n") == std::string_view::npos) {
        return std::string(trimmed);
    }
    throw Error(code::kOutOfRange, "Calyx.CStream.SavedStreams",
                context_->texts.Format(code::kOutOfRange, {name, context_->texts.Text(kNameRule)}));
}

}  // namespace calyx
