#include "render/text/emoji_runs.h"
#include "tests/table.h"

using namespace mosslantern;
using namespace Qt::StringLiterals;

class TestEmojiRuns : public QObject
{
    Q_OBJECT

private slots:
    void finds_data()
    {
        const auto row = table<QString, QStringList>({"text", "runs"});
        row("none", u"plain 123 #* text"_s, {});
        row("single", u"a😀b"_s, {u"😀"_s});
        row("neighbours are two", u"😀😀"_s, {u"😀"_s, u"😀"_s});
        row("text presentation by default", u"✓ ✔ → ❤ © ™"_s, {});
        row("asked for", u"❤\uFE0F ✔\uFE0F"_s, {u"❤\uFE0F"_s, u"✔\uFE0F"_s});
        row("asked against", u"😀\uFE0E"_s, {});
        row("skin tone", u"👍🏽!"_s, {u"👍🏽"_s});
        row("skin tone alone", u"🏽"_s, {u"🏽"_s});
        row("flag", u"🇩🇪🇫🇷"_s, {u"🇩🇪"_s, u"🇫🇷"_s});
        row("half a flag", u"🇩 x"_s, {});
        row("keycap", u"1\uFE0F\u20E3 2\u20E3 3"_s, {u"1\uFE0F\u20E3"_s, u"2\u20E3"_s});
        row("family", u"👨\u200D👩\u200D👧x"_s, {u"👨\u200D👩\u200D👧"_s});
        row("joined with text characters", u"🏳\uFE0F\u200D🌈 👩\u200D❤\uFE0F\u200D👨"_s,
            {u"🏳\uFE0F\u200D🌈"_s, u"👩\u200D❤\uFE0F\u200D👨"_s});
        row("joined without U+FE0F", u"❤\u200D🔥"_s, {u"❤\u200D🔥"_s});
        row("joiner to nothing", u"😀\u200D x"_s, {u"😀"_s});
        row("tags", u"🏴󠁧󠁢󠁳󠁣󠁴󠁿"_s, {u"🏴󠁧󠁢󠁳󠁣󠁴󠁿"_s});
        row("unfinished tags", u"🏴\U000E0067\U000E0062"_s, {u"🏴"_s});
        row("profession with tone", u"👩🏽\u200D🚀"_s, {u"👩🏽\u200D🚀"_s});
        row("lone surrogates", QString(QChar(0xD83D)) + u"a"_s + QChar(0xDE00), {});
        row("ends in a joiner", u"❤\u200D"_s, {});
    }

    void finds()
    {
        QFETCH(QString, text);
        QStringList found;
        for (const TextRun &run : emojiRuns(text))
            found.append(text.sliced(run.start, run.length));
        QTEST(found, "runs");
    }
};

QTEST_APPLESS_MAIN(TestEmojiRuns)
#include "tst_emoji_runs.moc"
