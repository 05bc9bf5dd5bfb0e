#include "ui/link/calibration/print_page.h"

#include <QPrintDialog>
#include <QPrinter>
#include <QTextDocument>

namespace calyx::ui {

void PrintPage(QWidget& parent, const QString& name, const QString& html) {
    QPrinter printer;
    printer.setDocName(name);
    QPrintDialog dialog(&printer, &parent);
    if (dialog.exec() != QDialog::Accepted) return;
    QTextDocument page;
    page.setHtml(html);
    page.print(&printer);
}

}  // namespace calyx::ui
