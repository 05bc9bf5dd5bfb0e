#include "ui/window/window_layout.h"

#include <QGuiApplication>
#include <QScreen>
#include <QStringList>
#include <algorithm>

#include "ui/dialogs/screen_fit.h"
#include "ui/text.h"

namespace calyx::ui {

namespace {

constexpr QSize kFirstSize(1366, 768);
constexpr int kLeastPane = 48;  // pixels; less is a pane's tabs alone

const QList<int> kFirstColumns{208, 800, 340};
const QList<int> kFirstRows{560, 160};

QString Words(const QList<int>& numbers) {
    QStringList words;
    for (const int number : numbers) words += QString::number(number);
    return words.join(QLatin1Char(','));
}

QList<int> Numbers(const QString& words) {
    QList<int> numbers;
    for (const QString& word : words.split(QLatin1Char(','))) numbers += std::max(0, word.toInt());
    return numbers;
}

// A pane that was hidden or folded has no size to come back to and gets the first one.
void SetSizes(QSplitter& splitter, QList<int> sizes, const QList<int>& first) {
    if (sizes.size() != first.size()) sizes = first;
    for (qsizetype i = 0; i < sizes.size(); ++i) {
        if (sizes[i] < kLeastPane) sizes[i] = first[i];
    }
    splitter.setSizes(sizes);
}

bool IsSeen(const QRect& place) {
    constexpr int kEnough = 64;  // pixels each way that can be taken hold of
    for (const QScreen* screen : QGuiApplication::screens()) {
        const QRect part = screen->availableGeometry().intersected(place);
        if (part.width() >= kEnough && part.height() >= kEnough) return true;
    }
    return false;
}

}  // namespace

void KeepLayout(Settings& settings, const QMainWindow& window, const WindowParts& parts) {
    const QRect place = window.normalGeometry();
    settings.WindowLeft = place.left();
    settings.WindowTop = place.top();
    settings.WindowWidth = place.width();
    settings.WindowHeight = place.height();
    settings.WindowMaximized = window.isMaximized();
    const QList<int> shown{parts.showLines->isChecked() ? 1 : 0, parts.showPanes->isChecked() ? 1 : 0};
    settings.WindowLayout =
        Utf8(QStringList{Words(parts.columns->sizes()), Words(parts.rows->sizes()), Words(shown)}.join(
            QLatin1Char(';')));
}

void RestoreLayout(const Settings& settings, QMainWindow& window, const WindowParts& parts) {
    window.resize(FitScreen(window, kFirstSize));
    const QStringList layout = Shown(settings.WindowLayout).split(QLatin1Char(';'));
    SetSizes(*parts.columns, Numbers(layout.value(0)), kFirstColumns);
    SetSizes(*parts.rows, Numbers(layout.value(1)), kFirstRows);
    const QList<int> shown = Numbers(layout.value(2));
    parts.showLines->setChecked(shown.value(0, 1) != 0 || shown.size() != 2);
    parts.showPanes->setChecked(shown.value(1, 1) != 0 || shown.size() != 2);
    if (settings.WindowWidth <= 0 || settings.WindowHeight <= 0) return;
    const QSize size = FitScreen(window, QSize(settings.WindowWidth, settings.WindowHeight));
    const QRect place(QPoint(settings.WindowLeft, settings.WindowTop), size);
    window.resize(size);
    if (IsSeen(place)) window.setGeometry(place);
    if (settings.WindowMaximized) window.setWindowState(Qt::WindowMaximized);
}

}  // namespace calyx::ui
