#include "ui/items/typed_text.h"

#include <QLineEdit>

#include "model/language/text.h"
#include "ui/items/items_texts.h"
#include "ui/text.h"

namespace calyx::ui {

namespace {

using form::Entry;

bool Same(const QString& typed, std::string_view word) {
    return typed.compare(Shown(word), Qt::CaseInsensitive) == 0;
}

Entry NoChoice(const ResourceTexts& texts, const QString& typed, const QStringList& choices) {
    return {Entry::State::Wrong,
            {},
            Say(texts, items_text::kNoChoice, typed, choices.join(QStringLiteral(", ")))};
}

Entry ReadChoice(const CTextList& list, const ResourceTexts& texts, const QString& typed) {
    QStringList choices;
    for (const auto& entry : list) {
        if (Same(typed, entry.key) || Same(typed, entry.text)) return {.text = entry.key};
        choices += Shown(entry.text);
    }
    return NoChoice(texts, typed, choices);
}

}  // namespace

Entry ReadTyped(const form::Parameter& parameter, const ResourceTexts& texts, const QString& typed) {
    if (parameter.List() != nullptr) return ReadChoice(*parameter.List(), texts, typed.trimmed());
    if (parameter.Info().kind == ValueKind::Switch) {
        const form::SwitchWords words = parameter.Words();
        for (const std::string& word : {words.on, words.off}) {
            if (Same(typed.trimmed(), word)) return {.text = word};
        }
        return NoChoice(texts, typed, {Shown(words.on), Shown(words.off)});
    }
    QWidget room;
    const auto control = form::MakeControl(parameter, texts, &room);
    control->Show(parameter.Text());
    auto* line = qobject_cast<QLineEdit*>(control->Widget());
    if (line == nullptr) return {Entry::State::Wrong, {}, {}};
    line->setText(typed);
    return control->Read(true);
}

}  // namespace calyx::ui
