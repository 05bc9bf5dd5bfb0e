#include "ui/tables/item_clipboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

#include "ui/text.h"

namespace calyx::ui {

namespace {

constexpr QLatin1String kLines("application/x-calyx-lines");

QByteArray Bytes(std::string_view text) {
    return {text.data(), static_cast<qsizetype>(text.size())};
}

}  // namespace

void CopyItems(std::string_view own, std::string_view text) {
    auto* data = new QMimeData;  // the clipboard's from here on
    data->setData(kLines, Bytes(own));
    data->setText(Shown(text));
    QGuiApplication::clipboard()->setMimeData(data);
}

std::string CopiedItems() {
    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    if (data == nullptr) return {};
    if (data->hasFormat(kLines)) return data->data(kLines).toStdString();
    return Utf8(data->text());
}

}  // namespace calyx::ui
