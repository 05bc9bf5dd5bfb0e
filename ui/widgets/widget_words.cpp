#include "ui/widgets/widget_words.h"

#include "ui/form/bytes.h"
#include "ui/text.h"
#include "ui/widgets/widget_look.h"
#include "ui/widgets/widget_texts.h"

namespace calyx::ui {

using namespace widget_text;

QString KindWords(const ResourceTexts& texts, WidgetKind kind) {
    return Say(texts, InfoOf(kind).name);
}

QString WidgetWords(const ResourceTexts& texts, const CWidgets& widgets, int number) {
    const CWidget& widget = widgets.widget(number);
    const WidgetFields& fields = widget.Values();
    const QString kind = KindWords(texts, widget.WidgetType());
    if (widget.WidgetType() == WidgetKind::Scale)
        return Say(texts, kScaleNamed, kind, QString::number(fields.numberDisplayed));
    const QString name = ToShown(fields.name.Trimmed());
    return name.isEmpty() ? Say(texts, kNumbered, kind, QString::number(number))
                          : Say(texts, kNamed, kind, name);
}

QString WidgetsWords(const ResourceTexts& texts, const CWidgets& widgets, const std::vector<int>& numbers) {
    if (numbers.size() == 1) return WidgetWords(texts, widgets, numbers.front());
    return Say(texts, kSeveral, QString::number(numbers.size()));
}

QString PlaceWords(const ResourceTexts& texts, const CWidgets& widgets, int number) {
    const QRect rect = ShownRect(widgets, number);
    QString words = WidgetWords(texts, widgets, number);
    const CWidget& widget = widgets.widget(number);
    if (!widget.Values().caption.empty())
        words += QStringLiteral(" \"%1\"").arg(ToShown(widget.Values().caption));
    if (HasPlace(widget.WidgetType()) && !widget.Values().visible) words = Say(texts, kHidden, words);
    return Say(texts, kPlaceWords, words, QString::number(rect.x()), QString::number(rect.y()),
               QString::number(rect.width()), QString::number(rect.height()));
}

}  // namespace calyx::ui
