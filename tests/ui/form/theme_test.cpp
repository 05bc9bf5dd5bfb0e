// The looks: contrast in each, icons sharp and of one stroke.

#include <QImage>
#include <QLineEdit>
#include <QPushButton>
#include <QtTest>

#include "ui/theme/icons.h"
#include "ui/theme/metrics.h"
#include "ui/theme/theme.h"

namespace calyx::ui {

class ThemeTest : public QObject {
    Q_OBJECT

  private slots:
    void ContrastIsMeasuredRight() {
        QVERIFY(qAbs(ContrastRatio(Qt::black, Qt::white) - 21) < 0.001);
        QVERIFY(qAbs(ContrastRatio(Qt::white, Qt::white) - 1) < 0.001);
        QVERIFY(qAbs(ContrastRatio("#767676", "#ffffff") - 4.54) < 0.01);  // the known edge of 4.5
    }

    void TextCanBeRead_data() {
        QTest::addColumn<Tokens>("tokens");
        QTest::addColumn<double>("least");
        QTest::newRow("light") << LightTokens() << 4.5;
        QTest::newRow("dark") << DarkTokens() << 4.5;
        QTest::newRow("high contrast") << HighContrastTokens() << 7.0;
    }
    void TextCanBeRead() {
        QFETCH(Tokens, tokens);
        QFETCH(double, least);
        const QPalette palette = PaletteOf(tokens);
        for (const auto ground : {role::kField, role::kWindow, role::kRaised, role::kHeld}) {
            for (const auto text : {role::kText, role::kQuietText, role::kIcon, role::kProblem,
                                    QPalette::Link, QPalette::Text, QPalette::ButtonText}) {
                for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
                    const double ratio =
                        ContrastRatio(palette.color(group, text), palette.color(group, ground));
                    QVERIFY2(ratio >= least,
                             qPrintable(QString("%1 on %2: %3").arg(text).arg(ground).arg(ratio)));
                }
            }
        }
        QVERIFY(ContrastRatio(palette.color(role::kOnAccent), palette.color(role::kAccent)) >= least);
        QVERIFY(ContrastRatio(palette.color(role::kBorder), palette.color(role::kField)) >= 3);
        QVERIFY(ContrastRatio(palette.color(role::kBorder), palette.color(role::kWindow)) >= 3);
    }

    void ControlsAreOfOneHeight() {
        for (const Theme theme : {Theme::Light, Theme::Dark, Theme::HighContrast, Theme::System}) {
            QVERIFY(ApplyTheme(*qApp, theme) != Theme::System);
            QLineEdit line;
            QPushButton button("Close");
            QCOMPARE(line.sizeHint().height(), metrics::kControlHeight);
            QCOMPARE(button.sizeHint().height(), metrics::kControlHeight);
        }
    }

    void EveryIconIsDrawn() {
        for (int i = 0; i < kIconCount; ++i) {
            for (const int size : {16, 24, 32}) {
                for (const qreal ratio : {1.0, 2.0}) {
                    const QImage picture =
                        IconPixmap(static_cast<IconName>(i), size, ratio, Qt::black).toImage();
                    QCOMPARE(picture.width(), qRound(size * ratio));
                    int full = 0;
                    for (int y = 0; y < picture.height(); ++y) {
                        for (int x = 0; x < picture.width(); ++x)
                            full += picture.pixelColor(x, y).alpha() > 100;
                    }
                    QVERIFY2(full > size / 2, qPrintable(QString("icon %1 at %2").arg(i).arg(size)));
                }
            }
        }
    }

    // A line along a row of the grid is a row of whole pixels, nothing of it in the next.
    void StraightLinesAreSharp() {
        for (const int size : {16, 24, 32, 48}) {
            const QImage picture = IconPixmap(IconName::Screens, size, 1, Qt::black).toImage();
            int partly = 0;
            for (int y = 0; y < size; ++y) {
                const int alpha = picture.pixelColor(size / 4, y).alpha();
                partly += alpha > 8 && alpha < 247;
            }
            QCOMPARE(partly, 0);
        }
    }
};

}  // namespace calyx::ui

QTEST_MAIN(calyx::ui::ThemeTest)
#include "theme_test.moc"
