#include "ui/database/schema_clipboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

#include "model/language/text.h"
#include "model/validation/validate.h"
#include "ui/text.h"

namespace calyx::ui {

namespace {

constexpr QLatin1String kFormat("CalyxSchema");

std::string TypeOf(std::string_view word, const CTextList& types) {
    for (const auto& entry : types) {
        if (EqualNoCase(word, entry.key) || EqualNoCase(word, entry.text)) return entry.key;
    }
    return types.Default();
}

}  // namespace

void CopySchemas(std::string_view lines) {
    auto* data = new QMimeData;  // the clipboard's from here on
    data->setData(kFormat, {lines.data(), static_cast<qsizetype>(lines.size())});
    data->setText(Shown(lines));
    QGuiApplication::clipboard()->setMimeData(data);
}

std::string CopiedSchemas() {
    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    if (data == nullptr) return {};
    if (data->hasFormat(kFormat)) return data->data(kFormat).toStdString();
    return Utf8(data->text());
}

std::string FieldsAsText(const std::vector<SchemaField>& fields) {
    std::string text;
    for (const SchemaField& field : fields) {
        text.append(field.name).append(1, '\t').append(field.type).append(1, '\t');
        text += field.keyed ? "ON\n" : "OFF\n";
    }
    return text;
}

std::vector<SchemaField> FieldsOfText(std::string_view text, const CTextList& types) {
    std::vector<SchemaField> fields;
    bool names = true;
    ForEachLine(text, [&](std::string_view line) {
        if (Trim(line).empty()) return;
        const auto words = Split(line, '\t');
        const auto word = [&](std::size_t place) {
            return place < words.size() ? Trim(words[place]) : std::string_view();
        };
        names = names && modValidate::ValidateAlias(word(0));
        fields.push_back({std::string(word(0)), TypeOf(word(1), types), EqualNoCase(word(2), "ON")});
    });
    if (!names) fields.clear();
    return fields;
}

}  // namespace calyx::ui
