#pragma once

#include <QString>
#include <string>
#include <string_view>

#include "model/language/resource_texts.h"

namespace calyx::ui {

// Texts and paths as they are shown: UTF-8. Sentences that quote values may hold bytes that are none;
// each of those shows by the code page, so that nothing is lost to sight.
QString Shown(std::string_view bytes);

// A key or value on one line, control characters as their pictures; and the way back for a value that
// replaces `old`.
QString ShownValue(std::string_view bytes);
std::string ValueBytes(QString shown, std::string_view old);

// Keys travel through the windows as text of the same bytes.
inline QString KeyText(std::string_view key) {
    return QString::fromLatin1(key.data(), static_cast<qsizetype>(key.size()));
}
inline std::string KeyBytes(const QString& key) {
    return key.toLatin1().toStdString();
}

inline std::string Utf8(const QString& text) {
    return text.toStdString();
}

// A resource text with its arguments filled in.
template <class... Argument>
QString Say(const ResourceTexts& texts, int number, const Argument&... arguments) {
    if constexpr (sizeof...(Argument) == 0) {
        return Shown(texts.Text(number));
    } else {
        return Shown(texts.Format(number, {std::string_view(Utf8(arguments))...}));
    }
}

// A menu's or button's caption without its mnemonic and dots, as it is named in sentences and tool tips.
QString PlainCaption(QString caption);

}  // namespace calyx::ui
