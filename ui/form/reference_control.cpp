#include "ui/form/reference_control.h"

#include <QAction>
#include <QMenu>
#include <algorithm>
#include <utility>

#include "ui/form/form_texts.h"
#include "ui/form/widths.h"
#include "ui/theme/icons.h"
#include "ui/theme/metrics.h"

namespace calyx::ui::form {

namespace {

constexpr std::string_view kDown = "M 4 6 L 8 10 L 12 6";
constexpr int kFewest = 5;  // characters that there is room for: "NONE"

}  // namespace

ReferenceControl::ReferenceControl(const RowInfo& info, const ResourceTexts& texts, Offers offers,
                                   QWidget* parent)
    : NumberControl(info, texts, parent), texts_(texts), offers_(std::move(offers)) {
    QFont bold = Line()->font();
    bold.setBold(true);
    const int least = QFontMetrics(bold).horizontalAdvance(u'0') * kFewest;
    const int room = metrics::kIconSmall + 2 * metrics::kRelated;
    Line()->setFixedWidth(std::max(Line()->minimumWidth(), InSteps(least + room + metrics::kGroups)));
    Line()->setInputMethodHints({});
    QAction* choose = Line()->addAction(StrokeIcon(kDown), QLineEdit::TrailingPosition);
    choose->setText(Say(texts_, kChooseReference));
    choose->setShortcuts({Qt::Key_Down, Qt::Key_F4});  // Alt+Down goes to the next item
    choose->setShortcutContext(Qt::WidgetShortcut);
    connect(choose, &QAction::triggered, this, &ReferenceControl::Choose);
}

Entry ReferenceControl::Read(bool leaving) const {
    const QString typed = Typed().trimmed();
    for (const Reference& offer : offers_()) {
        const bool word = SplitNumber(offer.text).number.empty();
        if (word && typed.compare(ToShown(offer.text), Qt::CaseInsensitive) == 0) return {.text = offer.text};
    }
    return NumberControl::Read(leaving);
}

QString ReferenceControl::Sign() const {
    const QString typed = Typed().trimmed();
    for (const Reference& offer : offers_()) {
        if (typed == ToShown(SplitNumber(offer.text).number)) return offer.name;
    }
    return {};
}

void ReferenceControl::Choose() {
    auto* menu = new QMenu(Line());
    menu->setObjectName(QStringLiteral("menuReferences"));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const QString typed = Typed().trimmed();
    for (const Reference& offer : offers_()) {
        QString words = offer.words;
        QAction* item = menu->addAction(words.replace(u'&', QLatin1String("&&")));
        const QString text = ToText(offer.text);
        if (text == typed) {
            item->setCheckable(true);
            item->setChecked(true);
            menu->setActiveAction(item);
        }
        connect(item, &QAction::triggered, this, [this, text] {
            ShowText(text);
            emit Edited(false);
        });
    }
    if (menu->isEmpty()) menu->addAction(Say(texts_, kNothingToChoose))->setEnabled(false);
    menu->popup(Line()->mapToGlobal(QPoint(0, Line()->height())));
}

}  // namespace calyx::ui::form
