#include "ui/tickets/token_model.h"

#include <iterator>

#include "ui/text.h"
#include "ui/theme/theme.h"
#include "ui/tickets/ticket_texts.h"

namespace calyx::ui {

namespace {

QString SampleWords(const TicketToken& token, const ResourceTexts& texts) {
    if (token.sample == "\n") return Say(texts, say::kNewLine);
    if (token.sample == " ") return Say(texts, say::kBlank);
    return ShownValue(token.sample);
}

}  // namespace

QStandardItemModel* MakeTokenModel(const TicketTokens& tokens, const ResourceTexts& texts, QObject* parent) {
    auto* model = new QStandardItemModel(0, static_cast<int>(std::size(say::kTokenColumns)), parent);
    QStringList headings;
    for (const int heading : say::kTokenColumns) headings += Say(texts, heading);
    model->setHorizontalHeaderLabels(headings);
    for (const TicketToken& token : tokens.All()) {
        const QString name = Shown(token.name);
        QList<QStandardItem*> row;
        for (const QString& words : {u'<' + name + u'>', Say(texts, token.help), SampleWords(token, texts)}) {
            auto* cell = new QStandardItem(words);
            cell->setEditable(false);
            cell->setData(name, kTokenNameRole);
            cell->setToolTip(TokenTip(token, texts));
            row += cell;
        }
        row.front()->setFont(FixedFont());
        row.back()->setFont(FixedFont());
        model->appendRow(row);
    }
    return model;
}

QString TokenTip(const TicketToken& token, const ResourceTexts& texts) {
    return Say(texts, say::kTokenTip, Say(texts, token.help), SampleWords(token, texts));
}

}  // namespace calyx::ui
