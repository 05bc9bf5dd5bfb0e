#pragma once

#include <QDateTime>
#include <QFileSystemWatcher>
#include <QObject>
#include <QTimer>
#include <optional>

#include "ui/document_session.h"

namespace calyx::ui {

// Whether the document's file still holds what was read or saved here. It looks soon after the system tells
// of a change; not every drive tells, so the window asks for a look as well when it comes to the front.
class FileWatch : public QObject {
    Q_OBJECT

  public:
    // Unreadable counts as Same: the other program may be at it just now, and saving looks for itself.
    enum class State { Same, Changed, Gone };

    explicit FileWatch(DocumentSession& session);

    void Look();

  signals:
    // Once for every content that another program gave the file.
    void Noticed(calyx::ui::FileWatch::State state);

  private:
    struct Told {
        State state = State::Same;
        std::string content = {};  // where it was changed
        friend bool operator==(const Told&, const Told&) = default;
    };
    struct Seen {
        qint64 size;
        QDateTime at;
        friend bool operator==(const Seen&, const Seen&) = default;
    };

    void Begin();
    QString Path() const;
    Told Found(const QString& path) const;

    static constexpr int kRest = 250;  // ms; who replaces a file does so in several steps

    DocumentSession& session_;
    QFileSystemWatcher watcher_;
    QTimer rest_;
    Told told_;
    std::optional<Seen> seen_;  // what is known to be looked at already
};

}  // namespace calyx::ui
