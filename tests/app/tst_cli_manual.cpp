// Manual pages and completion scripts against the tool itself.

#include "app/cli/commands.h"
#include "tests/app/tool.h"

using namespace mosslantern;
using namespace Qt::StringLiterals;

namespace {

QString made(const QString &name)
{
    QFile file(QStringLiteral(MOSSLANTERN_MANUAL) + u'/' + name);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

/// The options that the tool's own help of a command lists.
QSet<QString> options(const QString &help)
{
    static const QRegularExpression option(u"^  (--[a-z-]+)"_s, QRegularExpression::MultilineOption);
    QSet<QString> found;
    for (const QRegularExpressionMatch &match : option.globalMatch(help))
        found.insert(match.captured(1));
    return found;
}

} // namespace

class CliManualTest : public QObject
{
    Q_OBJECT

private slots:
    void manualTellsAll();
    void bashOffersAll();
    void bashOffersNames_data();
    void bashOffersNames();

private:
    QStringList completed(const QStringList &lines) const;

    Tool m_tool;
};

/// What bash offers for the last word of each line, joined by '|'.
QStringList CliManualTest::completed(const QStringList &lines) const
{
    QString script = u"PATH=$(dirname %1):$PATH\nsource /usr/share/bash-completion/bash_completion\n"
                     "source "_s +
                     QStringLiteral(MOSSLANTERN_MANUAL) +
                     u"/mosslantern-cli.bash\n"
                     "compopt() { :; }\n"
                     "try() { COMP_WORDS=(mosslantern-cli \"$@\") COMP_CWORD=$# COMPREPLY=()\n"
                     "COMP_LINE=\"${COMP_WORDS[*]}\" COMP_POINT=${#COMP_LINE}; _mosslantern_cli\n"
                     "(IFS='|'; echo \"${COMPREPLY[*]}\"); }\n"_s;
    for (const QString &line : lines)
        script += u"try "_s + line + u'\n';
    const Outcome outcome = m_tool.runShell(script);
    return QString::fromUtf8(outcome.out).split(u'\n');
}

void CliManualTest::manualTellsAll()
{
    QString manual = made(u"mosslantern-cli.1"_s);
    manual.replace(u"\\-"_s, u"-"_s);
    for (const Command &command : allCommands()) {
        const qsizetype begin = manual.indexOf(u".SS "_s + command.name + u'\n');
        QVERIFY2(begin >= 0, command.name.data());
        const QString section =
            manual.sliced(begin, manual.indexOf(QRegularExpression(u"\n\\.S"_s), begin) - begin);
        const Outcome help = m_tool.run(command.name + u" --help"_s);
        for (const QString &option : options(QString::fromUtf8(help.out)) - QSet{u"--help"_s, u"--library"_s})
            QVERIFY2(section.contains(u"\\fB"_s + option + u"\\fR"_s), qPrintable(command.name + option));
    }
}

void CliManualTest::bashOffersAll()
{
    const std::vector<Command> commands = allCommands();
    QStringList lines;
    for (const Command &command : commands)
        lines.append(command.name + u" --"_s);
    const QStringList offered = completed(lines);
    for (size_t i = 0; i < commands.size(); ++i) {
        const QStringList words = offered.value(qsizetype(i)).split(u'|');
        const Outcome help = m_tool.run(commands[i].name + u" --help"_s);
        QCOMPARE(QSet<QString>(words.begin(), words.end()), options(QString::fromUtf8(help.out)));
    }
}

void CliManualTest::bashOffersNames_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("offered");
    QTest::newRow("first words") << u"co"_s << u"collections|content"_s;
    QTest::newRow("second words") << u"preferences ''"_s << u"get|set"_s;
    QTest::newRow("second words called like a list") << u"collections c"_s << u"create"_s;
    QTest::newRow("a fixed operand") << u"preferences get ''"_s << u"openAiApiKey"_s;
    QTest::newRow("styles") << u"make --style ''"_s << u"classic|boxed|modern|neon"_s;
    QTest::newRow("shapes") << u"generate --shape 9"_s << u"9:16"_s;
    QTest::newRow("batches") << u"export --batch ''"_s << u"It\\'s\\ May\\ 3\\,\\ 10:00"_s;
    QTest::newRow("in quotes") << u"export --batch \"'It\""_s << u"'It'\\''s May 3, 10:00"_s;
    QTest::newRow("collections") << u"collections add S"_s << u"Summer\\ \\$HOME"_s;
    QTest::newRow("assets behind") << u"collections add Summer ''"_s << u"red.png"_s;
    QTest::newRow("of another library") << u"--library empty delete batch ''"_s << u""_s;
}

void CliManualTest::bashOffersNames()
{
    QFETCH(QString, line);
    if (m_tool.files(u"."_s).isEmpty()) {
        m_tool.writePicture(u"red.png"_s, Qt::red);
        m_tool.write(u"texts.txt"_s, "one\n");
        QVERIFY(m_tool.run(u"import red.png"_s).succeeded());
        QVERIFY(m_tool.run({u"collections"_s, u"create"_s, u"Summer $HOME"_s}).succeeded());
        QVERIFY(m_tool
                    .run({u"generate"_s, u"--content"_s, u"texts.txt"_s, u"--batch-name"_s,
                          u"It's May 3, 10:00"_s})
                    .succeeded());
    }
    QTEST(completed({line}).constFirst(), "offered");
}

QTEST_GUILESS_MAIN(CliManualTest)

#include "tst_cli_manual.moc"
