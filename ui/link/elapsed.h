#pragma once

#include <QElapsedTimer>
#include <QLabel>
#include <QTimer>

#include "model/language/resource_texts.h"
#include "ui/text.h"
#include "ui/texts.h"

namespace calyx::ui {

// Shows the time since Start, in minutes and seconds, until Stop.
class ElapsedLabel : public QLabel {
  public:
    explicit ElapsedLabel(const ResourceTexts& texts) : texts_(texts) {
        tick_.setInterval(500);  // ms; seconds are shown
        QObject::connect(&tick_, &QTimer::timeout, this, [this] { Show(); });
    }

    void Start() {
        since_.start();
        tick_.start();
        Show();
    }
    void Stop() { tick_.stop(); }

  private:
    void Show() {
        const qint64 seconds = since_.elapsed() / 1000;
        setText(Say(texts_, say::kElapsed,
                    QStringLiteral("%1:%2").arg(seconds / 60).arg(seconds % 60, 2, 10, QLatin1Char('0'))));
    }

    const ResourceTexts& texts_;
    QElapsedTimer since_;
    QTimer tick_;
};

}  // namespace calyx::ui
