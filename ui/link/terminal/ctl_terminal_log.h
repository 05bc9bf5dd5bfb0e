#pragma once

#include <QPlainTextEdit>
#include <QTime>
#include <deque>
#include <string>

#include "app/settings.h"
#include "model/language/resource_texts.h"

namespace calyx::ui {

// What went over the link, with its time, as text or as bytes in hexadecimal, in the colours of the settings.
class ctlTerminalLog : public QPlainTextEdit {
    Q_OBJECT

  public:
    ctlTerminalLog(const ResourceTexts& texts, const Settings& settings, QWidget* parent = nullptr);

    void Append(const std::string& bytes, bool outgoing);
    void Clear();
    void SetHex(bool hex);
    void SetFilter(const QString& words);  // only lines with these words
    QString Text() const;                  // all lines, as they are shown

  private:
    struct Entry {
        QTime at;
        bool outgoing;
        std::string bytes;
    };
    QString Words(const Entry& entry) const;
    bool Fits(const Entry& entry) const;
    void ShowAll();

    std::deque<Entry> entries_;
    QString filter_;
    bool hex_ = false;
};

}  // namespace calyx::ui
