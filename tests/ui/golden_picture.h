#pragma once

#include <QImage>
#include <QTest>
#include <algorithm>
#include <cstdlib>

namespace calyx::test {

// How far two pictures of one size differ: channels by up to `slack` of 255 are the same, since renderers
// round differently. The share of pixels that are not; 1 for pictures of different sizes.
inline double ShareThatDiffers(const QImage& a, const QImage& b, int slack = 24) {
    if (a.size() != b.size() || a.isNull()) return 1;
    const QImage left = a.convertToFormat(QImage::Format_RGB32);
    const QImage right = b.convertToFormat(QImage::Format_RGB32);
    qsizetype different = 0;
    for (int y = 0; y < left.height(); ++y) {
        for (int x = 0; x < left.width(); ++x) {
            const QRgb p = left.pixel(x, y), q = right.pixel(x, y);
            const int most = std::max({std::abs(qRed(p) - qRed(q)), std::abs(qGreen(p) - qGreen(q)),
                                       std::abs(qBlue(p) - qBlue(q))});
            if (most > slack) ++different;
        }
    }
    return static_cast<double>(different) / static_cast<double>(left.width() * left.height());
}

// Compares with a picture of tests/golden/pictures; CALYX_WRITE_GOLDEN=1 in the environment writes it
// instead, for a person to look at.
inline void CompareWithGolden(const QImage& picture, const QString& name) {
    constexpr double kShare = 0.005;
    const QString path = QStringLiteral(CALYX_DATA_DIR "/../tests/golden/pictures/") + name;
    if (std::getenv("CALYX_WRITE_GOLDEN") != nullptr) {
        QVERIFY2(picture.save(path), qPrintable(path));
        QSKIP(qPrintable(path + QStringLiteral(" written")));
    }
    const double share = ShareThatDiffers(picture, QImage(path));
    if (share > kShare) picture.save(name);  // beside the test, to be compared by eye
    QVERIFY2(share <= kShare, qPrintable(QStringLiteral("%1: %2 of the pixels differ").arg(name).arg(share)));
}

}  // namespace calyx::test
