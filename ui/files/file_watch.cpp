#include "ui/files/file_watch.h"

#include <QFileInfo>
#include <system_error>

#include "model/language/file_store.h"
#include "ui/text.h"

namespace calyx::ui {

FileWatch::FileWatch(DocumentSession& session) : session_(session) {
    rest_.setSingleShot(true);
    rest_.setInterval(kRest);
    connect(&rest_, &QTimer::timeout, this, &FileWatch::Look);
    connect(&watcher_, &QFileSystemWatcher::fileChanged, &rest_, qOverload<>(&QTimer::start));
    connect(&session_, &DocumentSession::Replaced, this, &FileWatch::Begin);
    connect(&session_, &DocumentSession::Saved, this, &FileWatch::Begin);
}

QString FileWatch::Path() const {
    const CIndicator& document = session_.Document();
    return document.OnFile() != nullptr ? Shown(document.Filename()) : QString();
}

void FileWatch::Begin() {
    if (!watcher_.files().isEmpty()) watcher_.removePaths(watcher_.files());
    seen_.reset();
    rest_.start();
    if (std::exchange(told_, {}).state != State::Same) emit Noticed(State::Same);
}

FileWatch::Told FileWatch::Found(const QString& path) const {
    const IFileStore& files = *session_.Context().files;
    try {
        if (files.Look(Utf8(path)) == IFileStore::Found::Nothing) return {State::Gone};
        std::string content = files.Read(Utf8(path));
        const std::string* known = session_.Document().OnFile();
        return known != nullptr && content == *known ? Told{} : Told{State::Changed, std::move(content)};
    } catch (const std::system_error&) {
        return told_;
    }
}

void FileWatch::Look() {
    const QString path = Path();
    if (path.isEmpty()) return;
    const QFileInfo info(path);
    if (info.exists()) {
        // Also one that was put in the place of the watched file, which is another to the system.
        if (!watcher_.files().contains(path)) watcher_.addPath(path);
        const Seen now{info.size(), info.lastModified()};
        if (seen_ == now) return;
        seen_ = now;
    } else {
        seen_.reset();
    }
    const Told found = Found(path);
    if (found == told_) return;
    told_ = found;
    emit Noticed(found.state);
}

}  // namespace calyx::ui
