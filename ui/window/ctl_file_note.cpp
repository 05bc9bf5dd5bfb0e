#include "ui/window/ctl_file_note.h"

#include <QPushButton>

#include "ui/text.h"
#include "ui/texts.h"

namespace calyx::ui {

ctlFileNote::ctlFileNote(const ResourceTexts& texts)
    : NoteStrip(texts, QStringLiteral("ctlFileNote")),
      texts_(texts),
      reload_(AddButton("cmdReload", Say(texts, say::kReload))),
      differences_(AddButton("cmdFileDifferences", Say(texts, say::kShowDifferences))) {
    connect(reload_, &QPushButton::clicked, this, &ctlFileNote::ReloadWanted);
    connect(differences_, &QPushButton::clicked, this, &ctlFileNote::DifferencesWanted);
}

void ctlFileNote::Show(FileWatch::State state, const QString& name) {
    if (state == FileWatch::State::Same) return hide();
    const bool there = state == FileWatch::State::Changed;
    reload_->setVisible(there);
    differences_->setVisible(there);
    Tell(Say(texts_, there ? say::kChangedNote : say::kGoneNote, name));
}

}  // namespace calyx::ui
