#pragma once

#include <QString>
#include <QStringList>

namespace calyx::ui::form {

// Captions with a mnemonic each, unique among them and none of the reserved letters: the first letter
// of a word if it is free, else any letter, else none. A "&" of the caption itself stays a character.
QStringList WithMnemonics(const QStringList& captions, const QString& reserved);

}  // namespace calyx::ui::form
