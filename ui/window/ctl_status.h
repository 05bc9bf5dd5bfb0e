#pragma once

#include <QTimer>
#include <QWidget>

#include "model/language/resource_texts.h"

class QLabel;

namespace calyx::ui {

// The status line: state of the file, state of the indicator and target version, always shown, and at the
// right a message that goes after a while.
class ctlStatus : public QWidget {
    Q_OBJECT

  public:
    explicit ctlStatus(const ResourceTexts& texts);

    void SetFile(const QString& words);
    void SetDevice(const QString& words);
    void SetTarget(const QString& words);
    void ShowMessage(const QString& words);
    QString Message() const;

  private:
    static constexpr int kMessageTime = 8000;  // ms

    QLabel* AddFact(const char* name, const QString& accessible);

    QLabel* file_;
    QLabel* device_;
    QLabel* target_;
    QLabel* message_;
    QTimer fade_;
};

}  // namespace calyx::ui
