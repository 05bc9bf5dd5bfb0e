#include "ui/hardware/digital_grid.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <map>

#include "ui/hardware/hardware_texts.h"
#include "ui/text.h"
#include "ui/texts.h"
#include "ui/theme/metrics.h"
#include "ui/theme/theme.h"

namespace calyx::ui {

namespace {

// The setpoints that use a point, in words, and the key of the first one's line.
struct Use {
    QStringList words;
    QString key;
};
using Uses = std::map<std::pair<int, int>, Use>;  // by slot (0: the main board) and point

void AddUses(Uses& uses, const CSetpoint& setpoint, const ResourceTexts& texts) {
    const SetpointFields& fields = setpoint.Values();
    const int number = setpoint.Number();
    const auto add = [&](int slot, int point, const char* stem) {
        Use& use = uses[{slot, point}];
        const QString words = Say(texts, hardware_text::kSetpoint, QString::number(number));
        if (use.words.isEmpty()) use.key = KeyText(SetpointKey(stem, number));
        if (!use.words.contains(words)) use.words += words;
    };
    const std::pair<const char*, int> outputs[] = {{"DIGOUT", fields.digOutPos},
                                                   {"DUNDER", fields.chDUnder},
                                                   {"DOVER", fields.chDOver},
                                                   {"DACCEPT", fields.chDAccept}};
    for (const auto& [stem, point] : outputs) {
        if (fields.digOutCard != 0 && point != 0 && HasSetpointLine(fields, stem))
            add(fields.digOutCard, point, stem);
    }
    if (!HasSetpointLine(fields, "MASK")) return;
    for (int point = 1; point <= DigitalFields::kCardPoints; ++point) {
        if ((static_cast<std::uint32_t>(fields.inputMask) >> (point - 1) & 1u) != 0)
            add(fields.digInCard, point, "MASK");
    }
}

std::vector<GridRow> PointRows(const CIndicator& document) {
    const ResourceTexts& texts = document.Context().texts;
    const CHardware& hardware = document.Hardware();
    Uses uses;
    for (const CSetpoint& setpoint : document.Setpoints()) AddUses(uses, setpoint, texts);
    std::vector<GridRow> rows;
    for (const int number : hardware.DigitalIOs()) {
        const CDigitalIO& points = hardware.DigitalIO(number);
        const auto& item = points.Parameters();
        const ItemRef ref{std::string(hardware.Name()), item.Title(), number};
        rows.push_back({ref, Shown(hardware.ItemTitle(item)), {}});
        for (int point = 1; point <= points.NumberOfPoints(); ++point) {
            const auto row = static_cast<std::size_t>(2 * (point - 1));  // definition, alias
            const Use use = uses[{number, point}];
            rows.push_back({ref,
                            Say(texts, hardware_text::kPoint, QString::number(point)),
                            {{item.Key(row), {}, {}},
                             {item.Key(row + 1), {}, {}},
                             {{}, use.words.join(QStringLiteral(", ")), use.key}}});
        }
    }
    return rows;
}

QWidget* MakeFoot(const ResourceTexts& texts, const std::function<void()>& toHardware) {
    auto* words = new QLabel(Say(texts, hardware_text::kMorePoints));
    words->setForegroundRole(role::kQuietText);
    auto* go = new QPushButton(Say(texts, say::kGoToHardware));
    go->setObjectName(QStringLiteral("cmdHardware"));
    QObject::connect(go, &QPushButton::clicked, go, toHardware);
    auto* foot = new QWidget;
    auto* row = new QHBoxLayout(foot);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(metrics::kGroups);
    row->addWidget(words);
    row->addWidget(go);
    row->addStretch(1);
    return foot;
}

}  // namespace

ctlGridPage* MakeDigitalPage(DocumentSession& session, const std::function<void()>& toHardware) {
    const ResourceTexts& texts = session.Context().texts;
    const QStringList headings{
        Say(texts, hardware_text::kPointColumn), Say(texts, hardware_text::kFunctionColumn),
        Say(texts, hardware_text::kAliasColumn), Say(texts, hardware_text::kUsedByColumn)};
    auto* page =
        new ctlGridPage(session, headings, PointRows, Say(texts, say::kDigital), MakeFoot(texts, toHardware));
    page->Grid().setObjectName(QStringLiteral("digitalGrid"));
    return page;
}

}  // namespace calyx::ui
