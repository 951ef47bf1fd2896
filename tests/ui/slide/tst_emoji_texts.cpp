// Emoji in everything that shows a text of the user's, outside of slides.

#include "tests/table.h"
#include "tests/ui/slide/editor_session.h"

using namespace mosslantern;
using namespace Qt::StringLiterals;

class EmojiTextsTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { prepareEditorTest(); }
    void showsThemAsSlidesDo_data();
    void showsThemAsSlidesDo();
    void labelsFollowTheirText();
};

namespace {

int count(const QImage &image, const std::function<bool(QColor)> &wanted)
{
    int found = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            found += wanted(image.pixelColor(x, y)) ? 1 : 0;
    }
    return found;
}

int redOf(const QImage &image)
{
    return count(image, [](QColor c) { return c.red() > 180 && c.green() < 90 && c.blue() < 90; });
}

int blueOf(const QImage &image)
{
    return count(image, [](QColor c) { return c.blue() > 130 && c.blue() > c.red() + 40; });
}

} // namespace

void EmojiTextsTest::showsThemAsSlidesDo_data()
{
    const auto row = table<QString, QString, bool>({"type", "property", "isElided"});
    row("several lines", u"TextEditor { label: 'x' }"_s, u"text"_s, false);
    row("one line", u"TextInputField {}"_s, u"text"_s, false);
    row("label", u"ElidedText {}"_s, u"text"_s, false);
    row("label that does not fit", u"ElidedText {}"_s, u"text"_s, true);
    row("button", u"PushButton {}"_s, u"text"_s, false);
    row("picker", u"MenuPicker { label: 'x' }"_s, u"displayText"_s, false);
}

void EmojiTextsTest::showsThemAsSlidesDo()
{
    QFETCH(const QString, type);
    QFETCH(const QString, property);
    QFETCH(const bool, isElided);
    // The text font has a heart and a digit of its own.
    const QString text = u"\u2764\uFE0F 1\uFE0F\u20E3"_s + (isElided ? QString(100, u'm') : QString());
    EditorSession session;
    session.showSource(type, {{property, text}}, {260, 60});
    const QImage image = session.grab();
    QVERIFY2(redOf(image) > 40, qPrintable(QString::number(redOf(image))));
    QVERIFY2(blueOf(image) > 40, qPrintable(QString::number(blueOf(image))));
}

void EmojiTextsTest::labelsFollowTheirText()
{
    EditorSession session;
    QQuickItem *const label = session.showSource(u"ElidedText {}"_s, {{u"text"_s, u"plain"_s}}, {260, 60});
    const QImage plain = session.grab();
    label->setProperty("text", u"\u2764\uFE0F"_s);
    QVERIFY(redOf(session.grab()) > 40);
    label->setProperty("text", u"\u2764\uFE0F\u2764\uFE0F\u2764\uFE0F"_s);
    QVERIFY(redOf(session.grab()) > 120);
    label->setProperty("text", u"plain"_s);
    QCOMPARE(session.grab(), plain);
}

QTEST_MAIN(EmojiTextsTest)
#include "tst_emoji_texts.moc"
