#include "model/preferences.h"
#include "tests/model/test_library.h"

#include <QtCore/QSettings>
#include <QtTest/QTest>

#include <sys/stat.h>

#include <atomic>
#include <filesystem>
#include <thread>

using namespace mosslantern;
using namespace Qt::StringLiterals;

namespace {

mode_t modeOf(const QString &path)
{
    struct stat status = {};
    return ::stat(qPrintable(path), &status) == 0 ? status.st_mode & 0777 : 0;
}

} // namespace

class TestPreferences : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { ::umask(0); }
    void keepsKey_data();
    void keepsKey();
    void keepsFilePrivate();
    void keepsWhatMakesSense();
    void reportsFailure();

private:
    QTemporaryDir m_folder;
};

void TestPreferences::keepsKey_data()
{
    QTest::addColumn<QString>("key");
    const QStringList keys{u"sk-proj-_0"_s, u" spaces, commas; \"quotes\" "_s, u"@Invalid()"_s,
                           u"ké😀\n%41\\x41"_s, QString()};
    for (const QString &key : keys)
        QTest::addRow("%s", qPrintable(key)) << key;
}

void TestPreferences::keepsKey()
{
    QFETCH(QString, key);
    const QString file = m_folder.filePath(u"a/b/preferences.ini"_s);
    QVERIFY(Preferences(file).setOpenAiApiKey(u"other"_s));
    QVERIFY(Preferences(file).setOpenAiApiKey(key));
    QCOMPARE(Preferences(file).openAiApiKey(), key);
    QCOMPARE(Preferences(m_folder.filePath(u"none.ini"_s)).openAiApiKey(), QString());
}

void TestPreferences::keepsFilePrivate()
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
                const auto path = entry.path().string();
                struct stat status = {};
                if (path.ends_with(".lock") || ::stat(path.c_str(), &status) != 0)
                    continue;
                ++sightings;
                tooOpen += (status.st_mode & 077) != 0 ? 1 : 0;
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
    QCOMPARE(modeOf(folder), 0700u);
    QVERIFY(sightings > 0);
    QCOMPARE(tooOpen.load(), 0);

    QCOMPARE(::chmod(qPrintable(file), 0666), 0);
    QVERIFY(preferences.setOpenAiApiKey(u"x"_s));
    QCOMPARE(modeOf(file), 0600u);
    QCOMPARE(::chmod(qPrintable(file), 0666), 0);
    QCOMPARE(preferences.openAiApiKey(), u"x"_s);
    QCOMPARE(modeOf(file), 0600u);
}

void TestPreferences::keepsWhatMakesSense()
{
    const QString file = m_folder.filePath(u"others.ini"_s);
    QFile damaged(file);
    QVERIFY(damaged.open(QIODevice::WriteOnly));
    damaged.write("[General]\nnonsense\n[window]\nwidth=5\nheig");
    damaged.close();
    QCOMPARE(Preferences(file).readOpenAiApiKey(), QString());
    QVERIFY(Preferences(file).setOpenAiApiKey(u"sk"_s));
    QCOMPARE(Preferences(file).readOpenAiApiKey(), u"sk"_s);
    QCOMPARE(QSettings(file, QSettings::IniFormat).value(u"window/width"_s).toInt(), 5);
    QVERIFY(readFile(file).contains("openAiApiKey=sk\n"));
}

void TestPreferences::reportsFailure()
{
    QFile(m_folder.filePath(u"file"_s)).open(QIODevice::WriteOnly);
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
    QCOMPARE(modeOf(isFolder), 0700u);
}

QTEST_APPLESS_MAIN(TestPreferences)
#include "tst_preferences.moc"
