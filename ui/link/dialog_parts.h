#pragma once

#include <QDialog>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "ui/text.h"
#include "ui/theme/metrics.h"
#include "ui/theme/tokens.h"

// What the dialogs of the link are put together from, so that they all look alike.
namespace calyx::ui {

inline QPushButton* MakeButton(const ResourceTexts& texts, int caption, const char* name) {
    auto* button = new QPushButton(Say(texts, caption));
    button->setObjectName(QLatin1String(name));
    button->setAutoDefault(false);
    return button;
}

// Words that may take several lines and never mean markup.
inline QLabel* MakeNote(const char* name) {
    auto* note = new QLabel;
    note->setObjectName(QLatin1String(name));
    note->setWordWrap(true);
    note->setTextFormat(Qt::PlainText);
    return note;
}

inline void ShowNote(QLabel& note, const QString& words, bool problem) {
    note.setForegroundRole(problem ? role::kProblem : role::kText);
    note.setText(words);
}

// A caption with its field, at the left of a cell's column.
inline QLabel* AddField(QGridLayout& fields, int row, const QString& caption, QWidget* field) {
    auto* label = new QLabel(caption);
    label->setBuddy(field);
    fields.addWidget(label, row, 0);
    fields.addWidget(field, row, 1, Qt::AlignLeft);
    return label;
}

inline QVBoxLayout* MakeColumn(QDialog& dialog) {
    auto* column = new QVBoxLayout(&dialog);
    column->setContentsMargins(metrics::kPageEdge, metrics::kPageEdge, metrics::kPageEdge, metrics::kGroups);
    column->setSpacing(metrics::kGroups);
    return column;
}

// Room that stays where a hidden widget was, so that nothing jumps.
inline void KeepRoom(QWidget& widget) {
    QSizePolicy keeps = widget.sizePolicy();
    keeps.setRetainSizeWhenHidden(true);
    widget.setSizePolicy(keeps);
}

}  // namespace calyx::ui
