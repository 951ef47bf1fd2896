#include "tests/app/tool.h"
#include "tests/table.h"

using namespace mosslantern;
using namespace Qt::StringLiterals;

class CliUsageTest : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_tool = std::make_unique<Tool>(); }

    void wrongUsage_data()
    {
        const auto row = table<QString, QString>({"line", "expected"});
        const auto add = [&](const char *line, const QString &expected) {
            row(line, QString::fromUtf8(line), expected);
        };
        add("", u"a command is missing"_s);
        add("frobnicate", u"unknown command “frobnicate”"_s);
        add("list", u"expected one of assets, collections, batches, slideshows"_s);
        add("collections list all", u"“all” is too much"_s);
        add("--frob list assets", u"unknown option --frob"_s);
        add("--library", u"--library needs a value"_s);
        add("--library= list assets", u"--library must not be empty"_s);
        add("list assets --jsno", u"unknown option --jsno; expected one of --json, --library"_s);
        add("list assets --json=yes", u"--json takes no value"_s);
        add("list assets --json --json", u"--json is given twice"_s);
        add("import", u"more is expected: import [--json] FILE..."_s);
        add("export --to x", u"either --batch or --slideshow"_s);
        add("export --to x --batch b --slideshow s", u"either --batch or --slideshow"_s);
        add("export --batch b", u"--to is missing"_s);
        add("export --batch b --to", u"--to needs a value"_s);
        add("generate", u"--content is missing"_s);
        add("generate --content - --count 0", u"--count: expected a whole number from 1 to 1000, not “0”"_s);
        add("generate --content - --count 1.5", u"--count: expected a whole number"_s);
        add("generate --content - --style Neon",
            u"expected one of classic, boxed, modern, neon, not “Neon”"_s);
        add("generate --content - --shape 16:9", u"expected one of 9:16, 4:5, 1:1, not “16:9”"_s);
        add("generate --content - --text-pos 0.5", u"--text-pos: expected X,Y"_s);
        add("generate --content - --subtitle-pos 0.5,nan", u"--subtitle-pos: expected X,Y"_s);
        add("generate --content - --text-scale 0,5", u"--text-scale: expected a number from 0.01 to 100"_s);
        add("generate --content - --text-scale 100.1", u"--text-scale: expected a number from 0.01 to 100"_s);
        add("generate --content - --subtitle-scale -1", u"--subtitle-scale: expected a number"_s);
        add("generate --content - --box-color FFF", u"--box-color: expected RRGGBB or RRGGBBAA"_s);
        add("generate --content - --box-color GG0000", u"--box-color: expected RRGGBB or RRGGBBAA"_s);
        add("generate --content - --seed -1", u"--seed: expected a whole number from 0"_s);
        add("generate --content - --prompt p", u"--prompt needs --ai"_s);
        add("generate --table t --count 2", u"--table and --count exclude each other"_s);
        add("generate --content - --rows 2", u"--rows needs --table"_s);
        add("make --images . --content - --out o --collection c", u"unknown option --collection"_s);
        add("render --out o p.png", u"--text is missing"_s);
        add("render --text t --out o --shape 1:1 --size 9x9 p.png", u"either --shape or --size"_s);
        add("render --text t --out o --size 1920 p.png", u"--size: expected WxH"_s);
        add("render --text t --out o --size 1e9x1e9 p.png", u"expected fewer pixels"_s);
        add("preferences get color", u"unknown preference “color”; expected openAiApiKey"_s);
        add("content check", u"more is expected: content check FILE|-"_s);
    }

    void wrongUsage()
    {
        QFETCH(QString, line);
        QFETCH(QString, expected);
        const Outcome outcome = m_tool->run(line);
        QVERIFY2(outcome.failed(2, expected) && outcome.out.isEmpty(), outcome.all());
        QVERIFY(m_tool->files(u"."_s).isEmpty());
    }

    void everyCommandHasHelp()
    {
        const Outcome help = m_tool->run(u"--help"_s);
        QCOMPARE(help.status, 0);
        QStringList commands;
        for (const QString &line : help.lines()) {
            if (line.startsWith(u"  "_s) && !line.startsWith(u"  -"_s))
                commands.append(line.mid(2, 25).trimmed());
        }
        QVERIFY(commands.size() > 20);
        for (const QString &command : std::as_const(commands)) {
            const Outcome own = m_tool->run(command + u" --help"_s);
            QCOMPARE(own.status, 0);
            QVERIFY2(own.out.startsWith("Usage: mosslantern-cli " + command.toUtf8()), own.out.constData());
            for (const QString &line : own.lines())
                QVERIFY2(line.size() <= 80, qPrintable(line));
        }
        QCOMPARE(m_tool->run(u"--version"_s).status, 0);
        QCOMPARE(m_tool->run(u"content -h"_s).status, 0);
        QVERIFY(m_tool->files(u"."_s).isEmpty());
    }

    void contentCommands_data()
    {
        const auto add = table<QString, QByteArray, int, QByteArray, QString>(
            {"command", "input", "status", "output", "error"});
        const QByteArray broken = "{\"slides\":[{\"main\":\"a\nb\"}]}";
        add("valid", u"check"_s, "\xEF\xBB\xBF{\"slides\":[{\"main\":\"a\"}]}", 0, "valid, 1 slide\n", {});
        add("invalid", u"check"_s, broken, 1, {}, u"mosslantern-cli: standard input: "_s);
        add("lines", u"check"_s, "a\n\nb\n", 1, {}, u"as lines of text it gives 2 slides"_s);
        add("not UTF-8", u"check"_s, "\xFF", 1, {}, u"Standard input is not a text in UTF-8"_s);
        add("parsed lines", u"parse"_s, "  \xC3\xA9\n", 0,
            "[\n  {\n    \"main\": \"\xC3\xA9\",\n    \"subtitle\": \"\"\n  }\n]\n", {});
        add("parsed nothing", u"parse"_s, broken, 1, "[]\n",
            u"standard input: parse error at line 2, column 0: "_s);
        add("pretty", u"prettify"_s, "[1.0,{}]", 0, "[\n  1.0,\n  {}\n]\n", {});
        add("unchanged", u"prettify"_s, "no JSON\n", 1, "no JSON\n", u"left unchanged"_s);
        add("fixed", u"fix-newlines"_s, broken, 0, "{\"slides\":[{\"main\":\"a\\nb\"}]}", {});
    }

    void contentCommands()
    {
        QFETCH(QString, command);
        QFETCH(QByteArray, input);
        QFETCH(QByteArray, output);
        QFETCH(QString, error);
        const Outcome fromInput = m_tool->run(u"content %1 -"_s.arg(command), input);
        QTEST(fromInput.status, "status");
        QCOMPARE(fromInput.out, output);
        QVERIFY2(error.isEmpty() ? fromInput.err.isEmpty() : fromInput.error().contains(error),
                 fromInput.err.constData());

        m_tool->write(u"-file"_s, input);
        const Outcome fromFile = m_tool->run(u"content %1 -- -file"_s.arg(command));
        QCOMPARE(fromFile.status, fromInput.status);
        QCOMPARE(fromFile.out, output);
    }

    void inputThatComesInParts()
    {
        const auto process = m_tool->prepare(u"content parse -"_s);
        process->start();
        const QByteArray lines = QByteArray("line\n").repeated(50'000);
        process->write(lines);
        QVERIFY(process->waitForBytesWritten());
        QTest::qWait(300);
        process->write(lines);
        process->closeWriteChannel();
        QCOMPARE(Tool::finish(*process).json().array().size(), 100'000);
    }

    void outputThatCannotBeWritten_data()
    {
        const auto row = table<QString, int, QString>({"redirection", "status", "error"});
        row("full disk", u"> /dev/full"_s, 1, u"No space left on device"_s);
        row("closed", u">&-"_s, 1, u"standard output could not be written"_s);
        row("no reader", u"| true; exit ${PIPESTATUS[0]}"_s, 141, QString());
    }

    void outputThatCannotBeWritten()
    {
        QFETCH(QString, redirection);
        QFETCH(QString, error);
        // Long enough for a reader to be gone before the end.
        m_tool->write(u"lines"_s, QByteArray("line\n").repeated(100'000));
        const Outcome outcome = m_tool->runShell(u"'%1' content parse lines "_s + redirection);
        QTEST(outcome.status, "status");
        QVERIFY2(error.isEmpty() ? outcome.err.isEmpty() : outcome.error().contains(error),
                 outcome.err.constData());
    }

    void preferencesBelongToTheUser()
    {
        QCOMPARE(m_tool->run(u"preferences get openAiApiKey"_s).out, "\n");
        QCOMPARE(m_tool->run(u"preferences set openAiApiKey -"_s, "sk-key\n").status, 0);
        QCOMPARE(m_tool->run(u"preferences get openAiApiKey"_s).out, "sk-key\n");
        const QStringList files = m_tool->files(u"."_s);
        QCOMPARE(files.size(), 1);
        QCOMPARE(QFileInfo(m_tool->path(files.first())).permissions() &
                     (QFile::ReadGroup | QFile::ReadOther | QFile::WriteGroup | QFile::WriteOther),
                 QFile::Permissions());
    }

private:
    std::unique_ptr<Tool> m_tool;
};

QTEST_GUILESS_MAIN(CliUsageTest)
#include "tst_cli_usage.moc"
