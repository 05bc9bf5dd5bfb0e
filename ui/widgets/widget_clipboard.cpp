#include "ui/widgets/widget_clipboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

#include "ui/text.h"

namespace calyx::ui {

namespace {
constexpr QLatin1String kFormat("CalyxWidget");
}

void CopyWidgets(std::string_view lines) {
    auto* data = new QMimeData;  // the clipboard's from here on
    data->setData(kFormat, {lines.data(), static_cast<qsizetype>(lines.size())});
    data->setText(Shown(lines));
    QGuiApplication::clipboard()->setMimeData(data);
}

std::string CopiedWidgets() {
    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    if (data == nullptr) return {};
    if (data->hasFormat(kFormat)) return data->data(kFormat).toStdString();
    return Utf8(data->text());
}

}  // namespace calyx::ui
