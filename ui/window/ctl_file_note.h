#pragma once

#include "ui/files/file_watch.h"
#include "ui/window/note_strip.h"

namespace calyx::ui {

// Across the page: that another program has changed the file, or taken it away.
class ctlFileNote : public NoteStrip {
    Q_OBJECT

  public:
    explicit ctlFileNote(const ResourceTexts& texts);

    void Show(FileWatch::State state, const QString& name);  // name of the file, without its folder

  signals:
    void ReloadWanted();
    void DifferencesWanted();

  private:
    const ResourceTexts& texts_;
    QPushButton *reload_, *differences_;
};

}  // namespace calyx::ui
