#pragma once

#include "app/open_files.h"
#include "ui/dialogs/dialogs.h"

namespace calyx::ui {

// The questions about a file that another program has changed, or has open as well. Esc and Enter answer them
// so that every file stays as it is.
class OtherPrograms {
  public:
    OtherPrograms(Dialogs& dialogs, const ResourceTexts& texts, QWidget* window)
        : dialogs_(dialogs), texts_(texts), window_(window) {}

    // Whether saving has ended with one of these: 42600, 42601, 42602.
    static bool AreMeantBy(const Error& error);
    enum class Saving { Anyway, Elsewhere, Differences, Cancel };
    Saving AskSave(const Error& error, const QString& path);

    enum class Opening { Anyway, Copy, Cancel };
    Opening AskOpen(const OpenFiles::Holder& other, const QString& name);
    // Over a file that is not the document's own.
    bool AskReplace(const OpenFiles::Holder& other, const QString& name);

    enum class Reloading { Anyway, Differences, Cancel };
    Reloading AskReload(std::size_t changes, const QString& name);

  private:
    QString Text(int number) const;
    QString Since(std::int64_t seconds) const;
    QString Words(int text, const OpenFiles::Holder& other, const QString& name) const;

    Dialogs& dialogs_;
    const ResourceTexts& texts_;
    QWidget* window_;
};

}  // namespace calyx::ui
