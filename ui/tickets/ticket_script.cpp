#include "ui/tickets/ticket_script.h"

#include <algorithm>

#include "ui/form/bytes.h"

namespace calyx::ui {

namespace {

constexpr char16_t kPictures = 0x2400, kDeletePicture = 0x2421;
constexpr char16_t kBreak = 0x2029, kJoined = 0x2028;
constexpr qsizetype kMostLines = 99;  // that one token breaks

bool IsBreak(QChar c) {
    // The last two are what a text document breaks at as well.
    return c == QChar(kBreak) || c == u'\n' || c == u'\r' || c == QChar(0xFDD0) || c == QChar(0xFDD1);
}

// One byte by the code page; a single byte from 80 hex on is never UTF-8.
QString CodePageText(std::string_view bytes) {
    QString text;
    for (std::size_t i = 0; i < bytes.size(); ++i) text += ToShown(bytes.substr(i, 1));
    return text;
}

// Nothing: the code page does not have it.
std::optional<char> CodePageByte(QChar c) {
    const std::string byte = ToBytes(QString(c), "\xFF");
    return byte.size() == 1 ? std::optional(byte.front()) : std::nullopt;
}

QChar Picture(QChar c) {
    if (c < QChar(0x20)) return QChar(static_cast<char16_t>(kPictures + c.unicode()));
    return c == QChar(0x7F) ? QChar(kDeletePicture) : c;
}

// Line ends have no way back: they would make two lines of the text's one.
QChar Unpictured(QChar c) {
    if (c == QChar(kDeletePicture)) return QChar(0x7F);
    const int code = c.unicode() - kPictures;
    const bool control = code >= 0 && code < 0x20 && code != '\r' && code != '\n';
    return control ? QChar(static_cast<char16_t>(code)) : c;
}

}  // namespace

TicketScript::TicketScript(const TicketTokens& tokens) {
    const TicketToken* token = tokens.LineBreak();
    if (token == nullptr) return;
    lineBreak_ = ToShown(token->name);
    repeats_ = token->repeats;
}

QString TicketScript::Decoded(std::string_view bytes, bool utf8) {
    QString text =
        utf8 ? QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size())) : CodePageText(bytes);
    std::transform(text.begin(), text.end(), text.begin(), Picture);
    return text;
}

std::optional<std::string> TicketScript::Encoded(const QString& text, bool utf8) {
    QString plain = text;
    std::transform(plain.begin(), plain.end(), plain.begin(), Unpictured);
    if (utf8) return plain.toStdString();
    std::string bytes;
    for (const QChar c : plain) {
        const auto byte = CodePageByte(c);
        if (!byte) return std::nullopt;
        bytes += *byte;
    }
    return bytes;
}

// UTF-8 that does not come back as it was (a byte order mark, a line separator) is shown by its bytes too.
QString TicketScript::Show(std::string_view bytes) {
    for (const bool utf8 : {true, false}) {
        utf8_ = utf8;
        QString held = Broken(Decoded(bytes, utf8_));
        if (!utf8 || Bytes(held) == bytes) return held;
    }
    return {};
}

std::optional<std::string> TicketScript::Bytes(const QString& held) const {
    return Encoded(Written(held), utf8_);
}

QString TicketScript::Lacking(const QString& held) const {
    const QString written = Written(held);
    for (qsizetype i = 0; i < written.size(); ++i) {
        const QString one = written.mid(i, written[i].isHighSurrogate() ? 2 : 1);
        if (!Encoded(one, utf8_)) return one;
        i += one.size() - 1;
    }
    return {};
}

QString TicketScript::Breaks(qsizetype lines) const {
    if (!HasBreaks()) return QString(lines, u' ');
    QString tokens;
    while (lines > 0) {
        const qsizetype these = repeats_ ? std::min(lines, kMostLines) : 1;
        tokens += u'<' + lineBreak_ + (these > 1 ? QString::number(these) : QString()) + u'>';
        lines -= these;
    }
    return tokens;
}

QString TicketScript::Written(const QString& held) const {
    QString written;
    for (qsizetype i = 0; i < held.size(); ++i) {
        qsizetype lines = 0;
        while (i < held.size() && held[i] == QChar(kJoined)) ++lines, ++i;
        const bool ends = i < held.size() && IsBreak(held[i]);
        if (lines > 0 || ends) written += Breaks(lines + (ends ? 1 : 0));
        if (i < held.size() && !ends) written += Picture(held[i]);
    }
    return written;
}

// Forms that would not be written again as they are ("<NL1>", "<NL02>") stay as they stand.
QString TicketScript::Broken(const QString& written) const {
    if (!HasBreaks()) return written;
    const QString start = u'<' + lineBreak_;
    QString held;
    qsizetype from = 0;
    for (qsizetype at = written.indexOf(start); at >= 0; at = written.indexOf(start, at + 1)) {
        const qsizetype close = written.indexOf(u'>', at);
        if (close < 0) break;
        const QString number = written.mid(at + start.size(), close - at - start.size());
        const qsizetype lines = number.isEmpty() ? 1 : number.toInt();
        if (lines < 1 || lines > kMostLines || Breaks(lines) != written.mid(at, close - at + 1)) continue;
        held += written.mid(from, at - from) + QString(lines - 1, QChar(kJoined)) + QChar(kBreak);
        from = close + 1;
    }
    return held + written.mid(from);
}

}  // namespace calyx::ui
