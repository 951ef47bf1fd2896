// Large emoji, drawn from outlines, beside the bitmaps of the same emoji.

#include "render/text/emoji_outlines.h"
#include "render/text/line_layout.h"

#include <QtGui/QPainter>
#include <QtTest/QTest>

#include <unicode/uchar.h>
#include <unicode/uset.h>

#include <array>

using namespace mosslantern;
using namespace Qt::StringLiterals;

namespace {

/// All emoji that Unicode recommends.
QStringList allEmoji()
{
    UErrorCode error = U_ZERO_ERROR;
    const USet *const all = u_getBinaryPropertySet(UCHAR_RGI_EMOJI, &error);
    QStringList emoji;
    for (int i = 0; i < uset_getItemCount(all); ++i) {
        UChar32 first = 0;
        UChar32 last = 0;
        std::array<UChar, 32> text{};
        const int length = uset_getItem(all, i, &first, &last, text.data(), text.size(), &error);
        if (length > 0)
            emoji.append(QString::fromUtf16(text.data(), length));
        for (UChar32 character = first; length == 0 && character <= last; ++character)
            emoji.append(QString::fromUcs4(reinterpret_cast<const char32_t *>(&character), 1));
    }
    return U_SUCCESS(error) ? emoji : QStringList();
}

/// An emoji that fills an image as wide as so many of its font's bitmaps.
QImage drawn(const QString &emoji, int bitmaps)
{
    const LineLayout line(emoji, TextStyle::modern, 100);
    QImage image(136 * bitmaps, 160 * bitmaps, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(image.width() / line.width(), image.width() / line.width());
    line.draw(painter, Qt::black);
    return image;
}

/// The sum of what differs between two images, in levels for each channel of each pixel.
double difference(const QImage &a, const QImage &b)
{
    double sum = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < 4 * a.width(); ++x)
            sum += std::abs(a.constScanLine(y)[x] - b.constScanLine(y)[x]);
    }
    return sum / (4.0 * a.width() * a.height());
}

/// The steepest edge of an image, in levels from one pixel of a row to the next.
int steepest(const QImage &image)
{
    int steepest = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 4; x < 4 * image.width(); ++x)
            steepest =
                std::max(steepest, std::abs(image.constScanLine(y)[x] - image.constScanLine(y)[x - 4]));
    }
    return steepest;
}

} // namespace

class EmojiOutlinesTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(registerFonts()); }

    void thereAreOutlinesOfEveryEmoji()
    {
        const QStringList all = allEmoji();
        QVERIFY2(all.size() > 3600, qPrintable(QString::number(all.size())));
        for (const QString &emoji : all)
            QVERIFY2(emojiOutlines(emoji), qPrintable(emoji));
        QVERIFY(!emojiOutlines(u"x"_s));
        QVERIFY(!emojiOutlines(u"😀😀"_s));
    }

    void largeEmojiAreTheSmallOnesSharp()
    {
        const QStringList all = allEmoji();
        QStringList some{u"🍳"_s}; // of outlines that overlap
        for (qsizetype i = 0; i < all.size(); i += 50)
            some.append(all[i]);
        int blurred = 0;
        double sum = 0;
        for (const QString &emoji : some) {
            const QImage bitmap = drawn(emoji, 1);
            const QImage large = drawn(emoji, 2);
            const QImage reduced =
                large.scaled(bitmap.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
            const double apart = difference(reduced, bitmap);
            QVERIFY2(apart < 10, qPrintable(emoji + u' ' + QString::number(apart)));
            sum += apart;
            blurred += steepest(large) < 0.75 * steepest(bitmap);
        }
        QVERIFY2(sum / some.size() < 2, qPrintable(QString::number(sum / some.size())));
        QCOMPARE(blurred, 0);
    }
};

QTEST_MAIN(EmojiOutlinesTest)
#include "tst_emoji_outlines.moc"
