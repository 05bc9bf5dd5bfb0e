#include "ui/link/terminal/ctl_terminal_log.h"

#include <array>

#include "model/language/text.h"
#include "ui/link/terminal/terminal_texts.h"
#include "ui/text.h"
#include "ui/theme/metrics.h"
#include "ui/theme/theme.h"

namespace calyx::ui {

namespace {

constexpr std::size_t kMostEntries = 5000;  // older ones go

// The colours by the numbers in which the settings hold them, 0 to 15.
QColor ColourOf(std::int32_t number) {
    constexpr std::array<QRgb, 16> kColours{0x000000, 0x000080, 0x008000, 0x008080, 0x800000, 0x800080,
                                            0x808000, 0xc0c0c0, 0x808080, 0x0000ff, 0x00ff00, 0x00ffff,
                                            0xff0000, 0xff00ff, 0xffff00, 0xffffff};
    return QColor(kColours[static_cast<std::size_t>(number) % kColours.size()]);
}

QString Hex(const std::string& bytes) {
    const QByteArray digits = QByteArray::fromStdString(bytes).toHex(' ').toUpper();
    return QString::fromLatin1(digits);
}

}  // namespace

ctlTerminalLog::ctlTerminalLog(const ResourceTexts& texts, const Settings& settings, QWidget* parent)
    : QPlainTextEdit(parent) {
    setObjectName(QStringLiteral("terminalLog"));
    setAccessibleName(Say(texts, terminal_text::kLogName));
    setReadOnly(true);
    setFont(FixedFont());
    setLineWrapMode(NoWrap);
    setMaximumBlockCount(kMostEntries);
    document()->setDocumentMargin(metrics::kRelated);
    setPlaceholderText(Say(texts, terminal_text::kEmpty));
    QPalette colours = palette();
    const QColor text = ColourOf(settings.MMForeColor);
    colours.setColor(QPalette::Base, ColourOf(settings.MMBackColor));
    colours.setColor(QPalette::Text, text);
    colours.setColor(QPalette::PlaceholderText, text);
    setPalette(colours);
}

// "14:02:31.250  > UID=1", what came with "<".
QString ctlTerminalLog::Words(const Entry& entry) const {
    QString text = entry.at.toString(QStringLiteral("HH:mm:ss.zzz"));
    text += entry.outgoing ? QStringLiteral("  > ") : QStringLiteral("  < ");
    if (hex_) return text + Hex(entry.bytes);
    bool first = true;
    ForEachLine(entry.bytes, [&](std::string_view line) {
        if (!first) text += QStringLiteral("\n                ");
        first = false;
        text += ShownValue(line);
    });
    return text;
}

bool ctlTerminalLog::Fits(const Entry& entry) const {
    return filter_.isEmpty() || Words(entry).contains(filter_, Qt::CaseInsensitive);
}

void ctlTerminalLog::Append(const std::string& bytes, bool outgoing) {
    entries_.push_back({QTime::currentTime(), outgoing, bytes});
    if (entries_.size() > kMostEntries) entries_.pop_front();
    if (Fits(entries_.back())) appendPlainText(Words(entries_.back()));
}

void ctlTerminalLog::Clear() {
    entries_.clear();
    clear();
}

void ctlTerminalLog::SetHex(bool hex) {
    hex_ = hex;
    ShowAll();
}

void ctlTerminalLog::SetFilter(const QString& words) {
    filter_ = words;
    ShowAll();
}

void ctlTerminalLog::ShowAll() {
    QStringList lines;
    for (const Entry& entry : entries_) {
        if (Fits(entry)) lines += Words(entry);
    }
    setPlainText(lines.join(QLatin1Char('\n')));
    moveCursor(QTextCursor::End);
}

QString ctlTerminalLog::Text() const {
    QString text;
    for (const Entry& entry : entries_) text += Words(entry) + QLatin1Char('\n');
    return text;
}

}  // namespace calyx::ui
