#include "ui/files/listing.h"

#include <QBuffer>
#include <QFont>
#include <QPdfWriter>
#include <QTextCursor>
#include <QTextDocument>
#include <system_error>

#include "ui/text.h"

namespace calyx::ui {

namespace {

QFont FontOf(const std::string& name, int points, bool bold, bool italic) {
    QFont font(Shown(name), points);
    font.setBold(bold);
    font.setItalic(italic);
    return font;
}

QByteArray AsPdf(const Settings& settings, const QString& heading, const QString& listing) {
    QTextDocument page;
    page.setDefaultFont(
        FontOf(settings.DataFontName, settings.DataFontSize, settings.DataFontBold, settings.DataFontItalic));
    QTextCharFormat headline;
    headline.setFont(FontOf(settings.HeaderFontName, settings.HeaderFontSize, settings.HeaderFontBold,
                            settings.HeaderFontItalic));
    QTextCharFormat plain;
    plain.setFont(page.defaultFont());
    QTextCursor cursor(&page);
    cursor.insertText(heading + QStringLiteral("\n\n"), headline);
    cursor.insertText(listing, plain);

    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setTitle(heading);
    page.print(&writer);
    return bytes;
}

}  // namespace

void WriteListing(AppContext& app, const CIndicator& document, const QString& heading, const QString& path) {
    std::string listing = document.GetPrintOutput();
    if (path.endsWith(QStringLiteral(".pdf"), Qt::CaseInsensitive)) {
        QString text = Shown(listing);
        listing = AsPdf(app.settings, heading, text.remove(QLatin1Char('\r'))).toStdString();
    }
    try {
        app.files.Replace(Utf8(path), listing);
    } catch (const std::system_error& failure) {
        throw Error(code::kFileNotWritten, "Calyx.WriteListing",
                    app.model.texts.Format(code::kFileNotWritten, {Utf8(path), failure.code().message()}));
    }
}

}  // namespace calyx::ui
