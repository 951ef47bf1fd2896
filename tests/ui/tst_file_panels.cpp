#include "app/gui/qt_file_panels.h"

#include <QtCore/QTemporaryDir>
#include <QtTest/QtTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QPushButton>

using namespace Qt::StringLiterals;

namespace mosslantern {

namespace {

QList<QFileDialog *> shownPanels()
{
    QList<QFileDialog *> panels;
    for (QWidget *widget : QApplication::topLevelWidgets()) {
        if (auto *const panel = qobject_cast<QFileDialog *>(widget); panel && panel->isVisible())
            panels.append(panel);
    }
    return panels;
}

QLineEdit &nameField(const QFileDialog &panel)
{
    return *panel.findChild<QLineEdit *>(u"fileNameEdit"_s);
}

/// As a user does, so that the answer comes while the key is still being handled.
void pressReturn(QFileDialog &panel)
{
    QTest::keyClick(panel.windowHandle(), Qt::Key_Return);
}

} // namespace

/// The panels that Qt draws itself.
class FilePanelsTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_panels.reset(); }

    void answersWithTheNamedFolder_data();
    void answersWithTheNamedFolder();
    void refusesTheNameOfAFile();
    void twoPanelsAtOnce();
    void picksImages();
    void saysNothingOnceItIsGone();

private:
    QFileDialog &askForFolder(const QString &suggestedName);
    FilePanels::Chosen noting();

    QTemporaryDir m_folder;
    std::unique_ptr<QWindow> m_window;
    std::unique_ptr<QtFilePanels> m_panels;
    QStringList m_answers;
};

void FilePanelsTest::init()
{
    m_window = std::make_unique<QWindow>();
    m_window->show();
    m_panels = std::make_unique<QtFilePanels>();
    m_panels->setWindow(m_window.get());
    m_answers.clear();
    QDir(m_folder.path()).mkdir(u"there"_s);
    QFile file(m_folder.filePath(u"file.png"_s));
    QVERIFY(file.open(QFile::WriteOnly));
}

/// An answer that, like an export, lets events run while it works.
FilePanels::Chosen FilePanelsTest::noting()
{
    return [this](const QString &folder) {
        QCoreApplication::processEvents();
        m_answers.append(folder);
    };
}

/// The panel that opens, in the test's folder.
QFileDialog &FilePanelsTest::askForFolder(const QString &suggestedName)
{
    const QList<QFileDialog *> before = shownPanels();
    m_panels->saveFolder({u"Export"_s, u"Where?"_s, suggestedName}, noting());
    QFileDialog *opened = nullptr;
    for (QFileDialog *panel : shownPanels()) {
        if (!before.contains(panel))
            opened = panel;
    }
    if (!opened || !QTest::qWaitForWindowExposed(opened))
        qFatal("The panel does not show.");
    opened->setDirectory(m_folder.path());
    return *opened;
}

void FilePanelsTest::answersWithTheNamedFolder_data()
{
    QTest::addColumn<QString>("suggested");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("folder");
    QTest::newRow("suggested") << u"Export_A"_s << QString() << u"Export_A"_s;
    QTest::newRow("slashes") << u"Export_Batch 11/23/2026, 01:37"_s << QString()
                             << u"Export_Batch 11-23-2026, 01:37"_s;
    QTest::newRow("suggested is there") << u"there"_s << QString() << u"there"_s;
    QTest::newRow("new name") << u"Export_A"_s << u"mine"_s << u"mine"_s;
    QTest::newRow("folder that is there") << u"Export_A"_s << u"there"_s << u"there"_s;
    QTest::newRow("full path") << u"Export_A"_s << m_folder.filePath(u"there"_s) << u"there"_s;
    QTest::newRow("folder in a folder") << u"Export_A"_s << u"there/new"_s << u"there/new"_s;
}

void FilePanelsTest::answersWithTheNamedFolder()
{
    QFETCH(QString, suggested);
    QFETCH(QString, typed);
    QFETCH(QString, folder);
    QFileDialog &panel = askForFolder(suggested);
    if (!typed.isEmpty()) {
        nameField(panel).selectAll();
        QTest::keyClicks(&nameField(panel), typed);
    }
    int buttons = 0;
    for (const QPushButton *button : panel.findChild<QDialogButtonBox *>()->findChildren<QPushButton *>()) {
        if (!button->isVisible())
            continue;
        ++buttons;
        QVERIFY2(button->isEnabled(), qUtf8Printable(button->text()));
    }
    QCOMPARE(buttons, 2);
    pressReturn(panel);
    QTRY_COMPARE(m_answers, QStringList{m_folder.filePath(folder)});
    QTRY_VERIFY(shownPanels().isEmpty());
}

void FilePanelsTest::refusesTheNameOfAFile()
{
    QFileDialog &panel = askForFolder(u"file.png"_s);
    pressReturn(panel);
    auto *const refusal = panel.findChild<QMessageBox *>();
    QVERIFY(refusal && refusal->text().contains(u"file.png"_s));
    refusal->accept();
    QCoreApplication::processEvents();
    QVERIFY(panel.isVisible());
    QVERIFY(m_answers.isEmpty());
    panel.reject();
    QTRY_COMPARE(m_answers, QStringList{QString()});
}

void FilePanelsTest::twoPanelsAtOnce()
{
    QFileDialog &first = askForFolder(u"first"_s);
    QFileDialog &second = askForFolder(u"second"_s);
    pressReturn(first);
    pressReturn(second);
    const QStringList both{m_folder.filePath(u"first"_s), m_folder.filePath(u"second"_s)};
    QTRY_COMPARE(m_answers, both);
}

void FilePanelsTest::picksImages()
{
    QList<QUrl> urls;
    m_panels->openImages([&](const Result<QList<QUrl>> &picked) {
        QCoreApplication::processEvents();
        urls = picked.value();
    });
    QFileDialog &panel = *shownPanels().constFirst();
    QVERIFY(QTest::qWaitForWindowExposed(&panel));
    QTest::keyClicks(&nameField(panel), m_folder.filePath(u"file.png"_s));
    pressReturn(panel);
    QTRY_COMPARE(urls, QList<QUrl>{QUrl::fromLocalFile(m_folder.filePath(u"file.png"_s))});
}

void FilePanelsTest::saysNothingOnceItIsGone()
{
    askForFolder(u"open"_s);
    static_cast<QDialog &>(askForFolder(u"answered"_s)).accept();
    m_panels.reset();
    QVERIFY(shownPanels().isEmpty());
    QCoreApplication::processEvents();
    QVERIFY(m_answers.isEmpty());
}

} // namespace mosslantern

int main(int argc, char **argv)
{
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication application(argc, argv);
    mosslantern::FilePanelsTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_file_panels.moc"
