#include "ui/text.h"

#include <algorithm>

#include "ui/form/bytes.h"

namespace calyx::ui {

namespace {

constexpr char16_t kPictures = 0x2400;  // of the control characters, in their order
constexpr char16_t kControls = 0x20;

// Length of the UTF-8 character at the start of the bytes; 0 when there is none.
std::size_t Utf8Length(std::string_view bytes) {
    const auto first = static_cast<unsigned char>(bytes.front());
    const std::size_t length = first < 0x80                    ? 1
                               : first >= 0xC2 && first < 0xE0 ? 2
                               : (first & 0xF0) == 0xE0        ? 3
                               : first >= 0xF0 && first < 0xF5 ? 4
                                                               : 0;
    if (length == 0 || length > bytes.size()) return 0;
    const auto follows = [](char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; };
    return std::all_of(bytes.begin() + 1, bytes.begin() + static_cast<std::ptrdiff_t>(length), follows)
               ? length
               : 0;
}

}  // namespace

QString Shown(std::string_view bytes) {
    if (std::all_of(bytes.begin(), bytes.end(), [](char c) { return (c & 0x80) == 0; })) {
        return QString::fromLatin1(bytes.data(), static_cast<qsizetype>(bytes.size()));
    }
    QString text;
    text.reserve(static_cast<qsizetype>(bytes.size()));
    while (!bytes.empty()) {
        const std::size_t length = Utf8Length(bytes);
        const std::string_view character = bytes.substr(0, std::max<std::size_t>(length, 1));
        text += ToShown(character);
        bytes.remove_prefix(character.size());
    }
    return text;
}

QString ShownValue(std::string_view bytes) {
    QString text = ToShown(bytes);
    for (QChar& c : text) {
        if (c.unicode() < kControls) c = QChar(static_cast<char16_t>(kPictures + c.unicode()));
    }
    return text;
}

std::string ValueBytes(QString shown, std::string_view old) {
    for (QChar& c : shown) {
        const int code = c.unicode() - kPictures;
        // A line end would make two lines of one.
        if (code >= 0 && code < kControls && code != '\r' && code != '\n')
            c = QChar(static_cast<char16_t>(code));
    }
    return ToBytes(shown, old);
}

QString PlainCaption(QString caption) {
    caption.remove(QLatin1Char('&'));
    while (caption.endsWith(QLatin1Char('.'))) caption.chop(1);
    return caption;
}

}  // namespace calyx::ui
