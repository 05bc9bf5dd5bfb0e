#pragma once

#include <QPlainTextEdit>
#include <QStackedWidget>

#include "model/language/resource_texts.h"

namespace calyx::ui {

// What went over the link, line by line with its time.
class ctlLinkLog : public QStackedWidget {
    Q_OBJECT

  public:
    explicit ctlLinkLog(const ResourceTexts& texts);

    void Append(const QString& line);
    QString Text() const { return text_->toPlainText(); }

  private:
    static constexpr int kMostLines = 5000;  // older ones go

    QPlainTextEdit* text_;
};

}  // namespace calyx::ui
