#pragma once

#include <QStandardItemModel>

#include "model/language/resource_texts.h"
#include "model/tickets/ticket_tokens.h"

namespace calyx::ui {

inline constexpr int kTokenNameRole = Qt::UserRole;  // without brackets

// The tokens in the order of their file, one a row: the token, what it prints, a sample.
QStandardItemModel* MakeTokenModel(const TicketTokens& tokens, const ResourceTexts& texts, QObject* parent);

// "Gross weight with its unit. Sample: 43120 LB"
QString TokenTip(const TicketToken& token, const ResourceTexts& texts);

}  // namespace calyx::ui
