#pragma once

#include <QColor>
#include <QFont>
#include <QRectF>
#include <QStringList>
#include <vector>

class QPainter;

namespace calyx::ui {

// What a ticket is printed as: its lines, and the page that the printer has.
struct TicketSheet {
    QStringList lines;
    int charsPerLine = 40, linesPerPage = 40;

    int Pages() const;  // at least one
    bool IsCut(int line) const { return lines[line].size() > charsPerLine; }
    std::vector<int> CutLines() const;  // from 0 on
    friend bool operator==(const TicketSheet&, const TicketSheet&) = default;
};

// The same in every theme: paper is pale and print is dark.
struct PaperColours {
    QColor paper{0xFC, 0xFB, 0xF7};
    QColor edge{0x8A, 0x8D, 0x90};
    QColor guide{0xC9, 0xC6, 0xBC};  // the last column and the last line
    QColor ink{0x1C, 0x1E, 0x22};
    QColor cut{0xB3, 0x26, 0x1E};
};

// Draws the pages of a ticket one below the other, every character in its cell; the end of a line that the
// page cuts is marked in the margin. In pixels from the corner of the first page; needs no window.
class TicketPainter {
  public:
    // `font`: of a fixed width.
    TicketPainter(TicketSheet sheet, const QFont& font);

    QSizeF Size() const;
    QRectF Page(int page) const;
    QRectF Line(int line) const;  // of the printed area
    // What lies in `part`, at least.
    void Paint(QPainter& painter, const QRectF& part) const;
    const TicketSheet& Sheet() const { return sheet_; }

  private:
    void PaintPage(QPainter& painter, int page) const;
    void PaintLine(QPainter& painter, int line) const;

    TicketSheet sheet_;
    QFont font_;
    double cellWidth_, cellHeight_, ascent_;
    PaperColours colours_;
};

}  // namespace calyx::ui
