#include "ui/form/mnemonics.h"

namespace calyx::ui::form {

namespace {

// Where the mnemonic goes; -1: no letter is free.
qsizetype FreePlace(const QString& caption, const QString& taken) {
    const auto free = [&](qsizetype i) {
        return caption[i].isLetterOrNumber() && !taken.contains(caption[i].toUpper());
    };
    for (qsizetype i = 0; i < caption.size(); ++i) {
        const bool begins = i == 0 || !caption[i - 1].isLetterOrNumber();
        if (begins && free(i)) return i;
    }
    for (qsizetype i = 0; i < caption.size(); ++i) {
        if (free(i)) return i;
    }
    return -1;
}

}  // namespace

QStringList WithMnemonics(const QStringList& captions, const QString& reserved) {
    QString taken = reserved.toUpper();
    QStringList marked;
    for (const QString& caption : captions) {
        const qsizetype place = FreePlace(caption, taken);
        if (place >= 0) taken += caption[place].toUpper();
        QString text;
        for (qsizetype i = 0; i < caption.size(); ++i) {
            if (i == place || caption[i] == u'&') text += u'&';
            text += caption[i];
        }
        marked += text;
    }
    return marked;
}

}  // namespace calyx::ui::form
