// A letter of every block of Unicode, drawn with all fonts of the system and, in a second run, with none but
// the required ones.

#include "drawn.h"
#include "render/text/fonts.h"

#include <QtGui/QFontDatabase>
#include <QtTest/QTest>

#include <unicode/uchar.h>

using namespace mosslantern;
using namespace mosslantern::test;
using namespace Qt::StringLiterals;

namespace {

/// The first letter of each block that has letters, as text, by the block's name.
QMap<QString, QString> letters()
{
    QMap<QString, QString> found;
    for (UChar32 character = 0x21; character <= 0x10FFFF; ++character) {
        if (!u_isalpha(character))
            continue;
        const int block = ublock_getCode(character);
        const QString name =
            QString::fromLatin1(u_getPropertyValueName(UCHAR_BLOCK, block, U_LONG_PROPERTY_NAME));
        if (!found.contains(name))
            found.insert(name, QString::fromUcs4(reinterpret_cast<const char32_t *>(&character), 1));
    }
    return found;
}

QImage drawnText(const QString &text, TextStyle style = TextStyle::modern)
{
    SlideValues values;
    values.text = text;
    values.style.textStyle = style;
    return drawn(values, Canvas{{350, 120}, 1}, Qt::blue);
}

} // namespace

class EveryScriptTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(registerFonts()); }

    void everyBlockIsDrawn()
    {
        const QMap<QString, QString> all = letters();
        QVERIFY2(all.size() > 200, qPrintable(QString::number(all.size())));
        const QImage nothing = drawnText(u" "_s);
        for (auto letter = all.cbegin(); letter != all.cend(); ++letter)
            QVERIFY2(drawnText(letter.value()) != nothing, qPrintable(letter.key()));
    }

    /// The vowel signs of Thaana stand above and below its letters.
    void thaanaIsShaped()
    {
        if (!QFontDatabase::hasFamily(u"Noto Sans Thaana"_s))
            QSKIP("Among the required fonts there is none for it.");
        for (const TextStyle style : allTextStyles) {
            const double word = LineLayout(u"ދިވެހި"_s, style, 32).width();
            const double consonants = LineLayout(u"ދވހ"_s, style, 32).width();
            QVERIFY2(word > 30 && std::abs(word - consonants) < 1, qPrintable(QString::number(word)));
            QVERIFY(drawnText(u"ދިވެހި"_s, style) != drawnText(u"ދވހ"_s, style));
        }
    }

    /// Beside letters that can be drawn, which stay what they are.
    void whatNoFontHasIsAnEmptyBox()
    {
        const QString privateUse = u"\U000F1234"_s;
        const QImage box = drawnText(privateUse);
        const QRect bounds = boundsOf(box, isWhite);
        QVERIFY(bounds.width() > 3 && bounds.height() > bounds.width());
        QVERIFY(!isWhite(box.pixelColor(bounds.center())));
        // White all around, at its middle height and width alike.
        for (const QPoint side :
             {QPoint(bounds.left(), bounds.center().y()), QPoint(bounds.right(), bounds.center().y()),
              QPoint(bounds.center().x(), bounds.top()), QPoint(bounds.center().x(), bounds.bottom())})
            QVERIFY(isWhite(box.pixelColor(side)));
        for (const TextStyle style : allTextStyles)
            QVERIFY(drawnText(u"A"_s + privateUse + u"❤️"_s, style) != drawnText(u"A ❤️"_s, style));
    }
};

QTEST_MAIN(EveryScriptTest)
#include "tst_every_script.moc"
