#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace calyx::ui {

// The crossing between 8-bit text of the model and what people see. Valid UTF-8 is shown as such;
// anything else byte by byte, by the Western code page that indicators use (Latin-1 with its printable
// characters at 80 to 9F hex).
QString ToShown(std::string_view bytes);

// The way back, for a value that replaces `old`: one that was not UTF-8 stays in the code page as long
// as it has all the characters; otherwise UTF-8. Shown text that was not touched gives the old bytes.
std::string ToBytes(const QString& shown, std::string_view old);

// A value is one line: line ends and NUL become blanks.
QString OneLine(QString text);

}  // namespace calyx::ui
