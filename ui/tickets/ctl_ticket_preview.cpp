#include "ui/tickets/ctl_ticket_preview.h"

#include <QLabel>
#include <QPaintEvent>
#include <QPainter>
#include <QVBoxLayout>
#include <algorithm>

#include "ui/text.h"
#include "ui/theme/metrics.h"
#include "ui/theme/theme.h"
#include "ui/tickets/preview_accessible.h"
#include "ui/tickets/ticket_texts.h"

namespace calyx::ui {

namespace {

constexpr double kSmallest = 0.7, kLargest = 1.25;  // of the body's size
constexpr int kDesk = 12;                           // around the pages
constexpr int kNarrowest = 240;

}  // namespace

TicketCanvas::TicketCanvas(const ResourceTexts& texts) : texts_(texts), painter_({}, FixedFont()) {
    setObjectName(QStringLiteral("ticketPreview"));
    setAccessibleName(Say(texts_, say::kPreviewName));
    InstallPreviewAccess();
}

void TicketCanvas::Show(const TicketSheet& sheet) {
    if (sheet == painter_.Sheet()) return;
    painter_ = TicketPainter(sheet, FixedFont());
    Resize();
    TellPreview(*this);
}

void TicketCanvas::FitTo(int width) {
    zoom_ = std::clamp((width - 2 * kDesk) / painter_.Size().width(), kSmallest, kLargest);
    Resize();
}

void TicketCanvas::Resize() {
    const QSizeF size = painter_.Size() * zoom_;
    setFixedSize(qRound(size.width()) + 2 * kDesk, qRound(size.height()) + 2 * kDesk);
    update();
}

QString TicketCanvas::LineWords(int line) const {
    const TicketSheet& sheet = painter_.Sheet();
    return Say(texts_, sheet.IsCut(line) ? say::kLineCutName : say::kLineName, QString::number(line + 1),
               sheet.lines[line].left(sheet.charsPerLine));
}

QRect TicketCanvas::LineRect(int line) const {
    const QRectF place = painter_.Line(line);
    return QRectF(place.topLeft() * zoom_ + QPointF(kDesk, kDesk), place.size() * zoom_).toRect();
}

void TicketCanvas::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(kDesk, kDesk);
    painter.scale(zoom_, zoom_);
    painter_.Paint(painter, painter.transform().inverted().mapRect(QRectF(event->rect())));
}

ctlTicketPreview::ctlTicketPreview(const ResourceTexts& texts)
    : texts_(texts),
      canvas_(new TicketCanvas(texts)),
      scroll_(new QScrollArea),
      page_(new QLabel),
      cut_(new QLabel) {
    auto* heading = new QLabel(Say(texts_, say::kPreview));
    heading->setMinimumHeight(metrics::kControlHeight);
    heading->setBuddy(scroll_);
    auto* sample = new QLabel(Say(texts_, say::kSampleNote));
    sample->setForegroundRole(role::kQuietText);
    auto* first = new QHBoxLayout;
    first->setSpacing(metrics::kRelated);
    first->addWidget(heading);
    first->addWidget(sample, 1);
    page_->setObjectName(QStringLiteral("previewPage"));
    page_->setForegroundRole(role::kQuietText);
    page_->setFont(TextFont(TextSize::Small));
    page_->setWordWrap(true);
    cut_->setObjectName(QStringLiteral("previewCut"));
    cut_->setForegroundRole(role::kProblem);
    cut_->setFont(TextFont(TextSize::Small));
    cut_->setWordWrap(true);
    cut_->hide();
    scroll_->setObjectName(QStringLiteral("previewScroll"));
    scroll_->setAccessibleName(Say(texts_, say::kPreviewName));
    scroll_->setFocusPolicy(Qt::StrongFocus);
    scroll_->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    scroll_->setBackgroundRole(role::kRaised);
    scroll_->setWidget(canvas_);
    scroll_->setMinimumWidth(kNarrowest);
    scroll_->viewport()->installEventFilter(this);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(metrics::kHalf);
    column->addLayout(first);
    column->addWidget(scroll_, 1);
    column->addWidget(page_);
    column->addWidget(cut_);
}

void ctlTicketPreview::Show(const TicketSheet& sheet) {
    canvas_->Show(sheet);
    canvas_->FitTo(scroll_->viewport()->width());
    const auto number = [](auto n) { return QString::number(n); };
    const auto used = static_cast<int>(sheet.lines.size());
    const QString lines = used == 0 ? Say(texts_, say::kPrintsNothing)
                          : sheet.Pages() > 1
                              ? Say(texts_, say::kUsesPages, number(used), number(sheet.Pages()))
                          : used == 1 ? Say(texts_, say::kUsesOneLine)
                                      : Say(texts_, say::kUsesLines, number(used));
    page_->setText(Say(texts_, say::kPageWords, number(sheet.charsPerLine), number(sheet.linesPerPage)) +
                   QStringLiteral(" · ") + lines);
    const std::vector<int> cut = sheet.CutLines();
    QStringList numbers;
    for (const int line : cut) numbers += number(line + 1);
    cut_->setText(Say(texts_, cut.size() == 1 ? say::kCutLine : say::kCutLines,
                      cut.size() == 1 ? numbers.join(QString()) : number(sheet.charsPerLine),
                      cut.size() == 1 ? number(sheet.charsPerLine) : numbers.join(QStringLiteral(", "))));
    cut_->setVisible(!cut.empty());
    scroll_->setAccessibleDescription(page_->text() +
                                      (cut.empty() ? QString() : QStringLiteral(". ") + cut_->text()));
}

bool ctlTicketPreview::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize) canvas_->FitTo(scroll_->viewport()->width());
    return QWidget::eventFilter(watched, event);
}

}  // namespace calyx::ui
