#include "ui/files/listing.h"

#include <QAbstractTextDocumentLayout>
#include <QBuffer>
#include <QDateTime>
#include <QFont>
#include <QLocale>
#include <QPainter>
#include <QPdfWriter>
#include <QTextCursor>
#include <QTextDocument>
#include <algorithm>
#include <set>
#include <system_error>

#include "app/version.h"
#include "model/language/reason.h"
#include "ui/text.h"
#include "ui/texts.h"

namespace calyx::ui {

namespace {

// A line of the listing, by how far in it stands.
struct ListingLine {
    enum class Kind { Section, Element, Parameter };
    Kind kind;
    QString text;
};

QFont FontOf(const std::string& name, int points, bool bold, bool italic) {
    QFont font(Shown(name), std::max(points, 1));
    font.setBold(bold);
    font.setItalic(italic);
    return font;
}

// The document writes parameters with two blanks before them; a heading is that of a section or of one
// of its elements.
std::vector<ListingLine> LinesOf(const CIndicator& document) {
    std::set<QString> sections;
    for (const Section* section : document.Sections())
        sections.insert(Say(document.Context().texts, section->Title()));
    std::vector<ListingLine> lines;
    const QStringList all =
        Shown(document.GetPrintOutput()).remove(QLatin1Char('\r')).split(QLatin1Char('\n'));
    for (const QString& line : all) {
        const bool parameter = line.startsWith(QLatin1Char(' '));
        const bool section = sections.contains(line) || line.isEmpty();
        lines.push_back({parameter ? ListingLine::Kind::Parameter
                         : section ? ListingLine::Kind::Section
                                   : ListingLine::Kind::Element,
                         line.trimmed()});
    }
    while (!lines.empty() && lines.back().text.isEmpty()) lines.pop_back();
    return lines;
}

QString Indented(const ListingLine& line, const Settings& settings) {
    if (line.text.isEmpty()) return {};
    const int blanks = line.kind == ListingLine::Kind::Parameter ? settings.ElementIndent
                       : line.kind == ListingLine::Kind::Element ? settings.SectionIndent
                                                                 : 0;
    return QString(std::max(blanks, 0), QLatin1Char(' ')) + line.text;
}

// The user's own headings, the file, and with the full header when and by what it was printed.
QStringList HeaderOf(const AppContext& app, const QString& heading) {
    QStringList lines;
    for (const std::string& own : app.settings.CustomHeader) {
        if (!own.empty()) lines += Shown(own);
    }
    lines += heading;
    if (app.settings.FullHeader) {
        lines += Say(app.model.texts, say::kPrintedBy, Shown(ProgramVersion()),
                     QLocale().toString(QDateTime::currentDateTime(), QLocale::ShortFormat));
    }
    return lines;
}

void Fill(QTextDocument& page, const Settings& settings, const QStringList& header,
          const std::vector<ListingLine>& lines) {
    page.setDefaultFont(
        FontOf(settings.DataFontName, settings.DataFontSize, settings.DataFontBold, settings.DataFontItalic));
    QTextCharFormat head, plain, strong;
    head.setFont(FontOf(settings.HeaderFontName, settings.HeaderFontSize, settings.HeaderFontBold,
                        settings.HeaderFontItalic));
    plain.setFont(page.defaultFont());
    strong = plain;
    strong.setFontWeight(QFont::Bold);
    QTextCursor cursor(&page);
    cursor.insertText(header.join(QLatin1Char('\n')) + QStringLiteral("\n\n"), head);
    for (const ListingLine& line : lines) {
        const bool heading = line.kind != ListingLine::Kind::Parameter;
        cursor.insertText(Indented(line, settings) + QLatin1Char('\n'),
                          heading && settings.DataBoldSubHeaders ? strong : plain);
    }
}

// Page by page, with the number below each where the settings want a footer.
void Paint(QPdfWriter& writer, QTextDocument& page, const AppContext& app) {
    QPainter painter(&writer);
    page.documentLayout()->setPaintDevice(&writer);
    const QRectF sheet(0, 0, writer.width(), writer.height());
    const double footer = app.settings.Footer ? 3 * painter.fontMetrics().height() : 0;
    const QSizeF body(sheet.width(), sheet.height() - footer);
    page.setPageSize(body);
    const int pages = page.pageCount();
    for (int i = 0; i < pages; ++i) {
        if (i > 0) writer.newPage();
        painter.save();
        painter.translate(0, -i * body.height());
        page.drawContents(&painter, QRectF(QPointF(0, i * body.height()), body));
        painter.restore();
        if (!app.settings.Footer) continue;
        painter.drawText(sheet, Qt::AlignBottom | Qt::AlignRight,
                         Say(app.model.texts, say::kPageOf, QString::number(i + 1), QString::number(pages)));
    }
}

std::string AsPdf(const AppContext& app, const QString& heading, const std::vector<ListingLine>& lines) {
    QTextDocument page;
    Fill(page, app.settings, HeaderOf(app, heading), lines);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    {
        QPdfWriter writer(&buffer);
        writer.setTitle(heading);
        Paint(writer, page, app);
    }
    return bytes.toStdString();
}

std::string AsText(const AppContext& app, const QString& heading, const std::vector<ListingLine>& lines) {
    QString text = HeaderOf(app, heading).join(QStringLiteral("\r\n")) + QStringLiteral("\r\n\r\n");
    for (const ListingLine& line : lines) text += Indented(line, app.settings) + QStringLiteral("\r\n");
    return Utf8(text);
}

}  // namespace

void WriteListing(AppContext& app, const CIndicator& document, const QString& heading, const QString& path) {
    const auto lines = LinesOf(document);
    const bool pdf = path.endsWith(QStringLiteral(".pdf"), Qt::CaseInsensitive);
    const std::string listing = pdf ? AsPdf(app, heading, lines) : AsText(app, heading, lines);
    try {
        app.files.Replace(Utf8(path), listing);
    } catch (const std::system_error& failure) {
        throw Error(code::kFileNotWritten, "Calyx.WriteListing",
                    app.model.texts.Format(code::kFileNotWritten, {Utf8(path), Reason(failure)}));
    }
}

}  // namespace calyx::ui
