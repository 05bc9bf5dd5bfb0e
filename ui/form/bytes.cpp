#include "ui/form/bytes.h"

#include <QStringDecoder>
#include <algorithm>
#include <array>
#include <optional>

namespace calyx::ui {

namespace {

// The printable characters at 80 to 9F hex; the five places without one keep their control character.
constexpr std::array<char16_t, 32> kHigh{0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                         0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                         0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                         0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

std::optional<QString> FromUtf8(std::string_view bytes) {
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    QString text = decoder.decode(QByteArrayView(bytes.data(), static_cast<qsizetype>(bytes.size())));
    if (decoder.hasError()) return std::nullopt;
    return text;
}

std::optional<std::string> ToCodePage(const QString& text) {
    std::string bytes;
    bytes.reserve(static_cast<std::size_t>(text.size()));
    for (const QChar c : text) {
        const auto high = std::find(kHigh.begin(), kHigh.end(), c.unicode());
        if (high != kHigh.end()) {
            bytes += static_cast<char>(0x80 + (high - kHigh.begin()));
        } else if (c.unicode() < 0x80 || (c.unicode() >= 0xA0 && c.unicode() <= 0xFF)) {
            bytes += static_cast<char>(c.unicode());
        } else {
            return std::nullopt;
        }
    }
    return bytes;
}

}  // namespace

QString ToShown(std::string_view bytes) {
    if (auto text = FromUtf8(bytes)) return *std::move(text);
    QString text;
    text.reserve(static_cast<qsizetype>(bytes.size()));
    for (const char byte : bytes) {
        const auto code = static_cast<unsigned char>(byte);
        text += code >= 0x80 && code < 0xA0 ? QChar(kHigh[code - 0x80u]) : QChar(static_cast<char16_t>(code));
    }
    return text;
}

std::string ToBytes(const QString& shown, std::string_view old) {
    if (ToShown(old) == shown) return std::string(old);
    if (!FromUtf8(old)) {
        if (auto bytes = ToCodePage(shown)) return *std::move(bytes);
    }
    return shown.toStdString();
}

QString OneLine(QString text) {
    for (QChar& c : text) {
        if (c == u'\r' || c == u'\n' || c.isNull() || c == QChar::LineSeparator ||
            c == QChar::ParagraphSeparator) {
            c = u' ';
        }
    }
    return text;
}

}  // namespace calyx::ui
