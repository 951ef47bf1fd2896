#include "model/preferences.h"
#include "tests/model/test_library.h"

#include <QtCore/QSettings>
#include <QtTest/QTest>

#include <atomic>
#include <filesystem>
#include <thread>

using namespace mosslantern;
using namespace Qt::StringLiterals;

class TestPreferences : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { ::umask(0); }

    void keepsKey()
    {
        const QString file = m_folder.filePath(u"a/b/preferences.ini"_s);
        for (const QString &key : {u"sk-proj-_0"_s, u" spaces, commas; \"quotes\" "_s, u"@Invalid()"_s,
                                   u"ké😀\n%41\\x41"_s, QString()}) {
            QVERIFY(Preferences(file).setOpenAiApiKey(key));
            QCOMPARE(Preferences(file).openAiApiKey(), key);
        }
        QCOMPARE(Preferences(m_folder.filePath(u"none.ini"_s)).openAiApiKey(), QString());
    }

    void keepsFilePrivate()
    {
        const QString folder = m_folder.filePath(u"private"_s);
        const QString file = folder + u"/preferences.ini"_s;
        std::atomic<bool> stop = false;
        std::atomic<int> sightings = 0;
        std::atomic<int> tooOpen = 0;
        std::thread observer([&] {
            const std::filesystem::path observed = folder.toStdString();
            while (!stop) {
                std::error_code error;
                for (const auto &entry : std::filesystem::directory_iterator(observed, error)) {
                    // The lock file that QSettings puts beside it holds no preferences.
                    const QString path = QString::fromStdString(entry.path().string());
                    const int mode = modeOf(path);
                    if (path.endsWith(u".lock"_s) || mode < 0)
                        continue;
                    ++sightings;
                    tooOpen += (mode & 077) != 0 ? 1 : 0;
                }
            }
        });
        Preferences preferences(file);
        bool written = true;
        for (int i = 0; i < 200; ++i)
            written = written && preferences.setOpenAiApiKey(QString::number(i)) && modeOf(file) == 0600;
        stop = true;
        observer.join();
        QVERIFY(written);
        QCOMPARE(modeOf(folder), 0700);
        QVERIFY(sightings > 0);
        QCOMPARE(tooOpen.load(), 0);

        QCOMPARE(::chmod(qPrintable(file), 0666), 0);
        QVERIFY(preferences.setOpenAiApiKey(u"x"_s));
        QCOMPARE(modeOf(file), 0600);
        QCOMPARE(::chmod(qPrintable(file), 0666), 0);
        QCOMPARE(preferences.openAiApiKey(), u"x"_s);
        QCOMPARE(modeOf(file), 0600);
    }

    void keepsWhatMakesSense()
    {
        const QString file = m_folder.filePath(u"others.ini"_s);
        writeFile(file, "[General]\nnonsense\n[window]\nwidth=5\nheig");
        QCOMPARE(Preferences(file).readOpenAiApiKey(), QString());
        QVERIFY(Preferences(file).setOpenAiApiKey(u"sk"_s));
        QCOMPARE(Preferences(file).readOpenAiApiKey(), u"sk"_s);
        QCOMPARE(QSettings(file, QSettings::IniFormat).value(u"window/width"_s).toInt(), 5);
        QVERIFY(readFile(file).contains("openAiApiKey=sk\n"));
    }

    void reportsFailure()
    {
        writeFile(m_folder.filePath(u"file"_s), {});
        const QString inFile = m_folder.filePath(u"file/preferences.ini"_s);
        const QString isFolder = m_folder.path();
        for (const QString &file : {inFile, isFolder}) {
            QCOMPARE(Preferences(file).setOpenAiApiKey(u"sk"_s).error().message,
                     u"The preferences “%1” cannot be written."_s.arg(file));
            QCOMPARE(Preferences(file).openAiApiKey(), QString());
            QCOMPARE(Preferences(file).readOpenAiApiKey().has_value(), file == inFile);
        }
        QVERIFY(!Preferences(QString()).setOpenAiApiKey(u"sk"_s));
        QCOMPARE(Preferences(QString()).readOpenAiApiKey(), QString());
        QCOMPARE(modeOf(isFolder), 0700);
    }

private:
    QTemporaryDir m_folder;
};

QTEST_APPLESS_MAIN(TestPreferences)
#include "tst_preferences.moc"
