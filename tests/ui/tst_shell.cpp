#include "app/gui/app_screen.h"
#include "app/gui/content_view.h"
#include "app/gui/mosslantern_app.h"
#include "app/gui/window_memory.h"
#include "tests/table.h"
#include "tests/ui/window_test.h"
#include "ui/common/symbol_drawing.h"

#include <QtCore/QDirIterator>
#include <QtCore/QRegularExpression>
#include <QtGui/QStyleHints>
#include <QtTest/QSignalSpy>

using namespace mosslantern;
using namespace Qt::StringLiterals;

class ShellTest : public WindowTest
{
    Q_OBJECT

private:
    std::optional<AppScreen> selected()
    {
        return session().window()->findChild<ContentView *>()->selectedScreen();
    }

    StartOptions startOptions()
    {
        return {.location = session().library().location(),
                .stateFile = session().library().path(u"state.ini"_s),
                .updateFeed = QUrl(QString(), QUrl::StrictMode)};
    }

private slots:
    void startsWithTheAssets()
    {
        session().open();
        QCOMPARE(selected(), AppScreen::assets);
        QVERIFY(session().find(u"assetGrid"_s));
        QVERIFY(session().find(u"sidebarRow0"_s)->property("isSelected").toBool());
        QCOMPARE(session().find(u"sidebarRow0"_s)->parentItem()->property("heading"), u"Resources"_s);
        QCOMPARE(session().find(u"sidebarRow1"_s)->parentItem()->property("heading"), u""_s);
        QCOMPARE(session().find(u"sidebarRow2"_s)->parentItem()->property("heading"), u"Playground"_s);
    }

    void goesWhereTheSidebarSays()
    {
        session().open();
        QVERIFY(session().click(u"sidebarRow2"_s));
        QCOMPARE(selected(), AppScreen::slideshows);
        session().key(Qt::Key_Up);
        QCOMPARE(selected(), AppScreen::collections);
        QVERIFY(session().find(u"collectionList"_s));

        QVERIFY(session().click(u"sidebarRow1"_s, 0, Qt::LeftButton, Qt::ControlModifier));
        QCOMPARE(selected(), std::nullopt);
        QVERIFY(session().findText(u"Select an item"_s));
        QVERIFY(!session().find(u"collectionList"_s));
        QVERIFY(session().click(u"sidebarRow0"_s));
        QVERIFY(session().find(u"assetGrid"_s));
        QVERIFY(!session().findText(u"Select an item"_s));
        session().key(Qt::Key_Space, Qt::ControlModifier);
        QCOMPARE(selected(), std::nullopt);
        session().key(Qt::Key_Down);
        QCOMPARE(selected(), AppScreen::assets);
    }

    void takesAClickHoweverLongItIsHeld()
    {
        session().open();
        const auto middle = [this](const QString &row) {
            const QQuickItem *const item = session().find(row);
            return item->mapToScene(item->boundingRect().center()).toPoint();
        };
        const int longTime = QGuiApplication::styleHints()->mousePressAndHoldInterval() + 100;
        const auto clickSlowly = [&](const QString &from, const QString &to) {
            QTest::mousePress(session().window(), Qt::LeftButton, {}, middle(from));
            QTest::mouseMove(session().window(), middle(to));
            QTest::mouseRelease(session().window(), Qt::LeftButton, {}, middle(to), longTime);
        };
        clickSlowly(u"sidebarRow1"_s, u"sidebarRow1"_s);
        QCOMPARE(selected(), AppScreen::collections);
        clickSlowly(u"sidebarRow2"_s, u"sidebarRow0"_s);
        QCOMPARE(selected(), AppScreen::collections);
    }

    void opensMenusAgainAfterEscape()
    {
        session().open();
        for (const QString &item : {u"&Mosslantern"_s, u"&Mosslantern"_s, u"&Edit"_s}) {
            const QQuickItem *const title = session().findText(item);
            const QPoint middle = title->mapToScene(title->boundingRect().center()).toPoint();
            QTest::mouseMove(session().window(), middle);
            QTest::mouseClick(session().window(), Qt::LeftButton, {}, middle);
            QTRY_VERIFY(session().findText(item.startsWith("&M"_L1) ? u"About Mosslantern"_s : u"Undo"_s));
            session().key(Qt::Key_Escape);
            QTRY_VERIFY(!session().findText(u"About Mosslantern"_s) && !session().findText(u"Undo"_s));
        }
    }

    void obeysShortcutsWhileASheetIsOpen()
    {
        QQuickWindow *const window = session().open();
        session().key(Qt::Key_F1);
        QTRY_VERIFY(session().find(u"closeShortcuts"_s));
        session().key(Qt::Key_F11);
        QTRY_COMPARE(window->visibility(), QWindow::FullScreen);
        session().key(Qt::Key_F11);
        QTRY_COMPARE(window->visibility(), QWindow::Windowed);
        // Held, it toggles once.
        for (const bool repeats : {false, true, true, true})
            QTest::simulateEvent(window, true, Qt::Key_S, Qt::ControlModifier | Qt::AltModifier, {}, repeats);
        QTRY_VERIFY(!session().find(u"sidebar"_s));
        session().key(Qt::Key_Down);
        QCOMPARE(window->findChild<ContentView *>()->selectedIndex(), 0); // not in the hidden sidebar

        const QSignalSpy quits(qmlEngine(window), &QQmlEngine::quit);
        session().key(Qt::Key_Q, Qt::ControlModifier);
        QCOMPARE(quits.count(), 1);
    }

    void asksOnceBeforeItAbandonsWork_data()
    {
        const auto row = table<RunningWork::Kind, bool>({"kind", "byShortcut"});
        row("an export, Ctrl+Q", RunningWork::Kind::exporting, true);
        row("an export, close button", RunningWork::Kind::exporting, false);
        row("a run of the AI service, Ctrl+Q", RunningWork::Kind::generating, true);
    }
    void asksOnceBeforeItAbandonsWork()
    {
        QFETCH(const RunningWork::Kind, kind);
        QFETCH(const bool, byShortcut);
        QQuickWindow *const window = session().open();
        const QSignalSpy quits(qmlEngine(window), &QQmlEngine::quit);
        const auto leave = [&] {
            if (byShortcut)
                session().key(Qt::Key_Q, Qt::ControlModifier);
            else
                window->close();
            settle();
        };
        auto *const context = session().view()->property("context").value<ScreenContext *>();
        std::optional<RunningWork::Piece> work(std::in_place, context->work(), kind);
        leave();
        leave();
        QTRY_COMPARE(session().count(u"quitWork"_s), 1);
        QVERIFY(session().click(u"continueWork"_s));
        QTRY_VERIFY(!session().find(u"quitWork"_s));
        leave();
        QTRY_VERIFY(session().find(u"quitWork"_s));
        work.reset(); // It goes with its reason.
        QTRY_VERIFY(!session().find(u"quitWork"_s));
        work.emplace(context->work(), kind);
        leave();
        QVERIFY(window->isVisible());
        QCOMPARE(quits.count(), 0);
        QVERIFY(session().click(u"quitWork"_s));
        QTRY_VERIFY(!window->isVisible());
        QCOMPARE(quits.count(), 1);
    }

    void editsWhatHasTheKeyboard()
    {
        session().library().addAsset(u"a"_s);
        session().open();
        for (const bool isAsset : {false, true}) {
            session().key(Qt::Key_E, Qt::AltModifier);
            QTRY_VERIFY(session().find(u"editDelete"_s));
            QCOMPARE(session().find(u"editDelete"_s)->isEnabled(), isAsset);
            if (isAsset)
                QVERIFY(session().click(u"editDelete"_s));
            session().key(Qt::Key_Escape);
            session().key(Qt::Key_Tab);
        }
        QVERIFY(store().all<Asset>().empty());
    }

    void keepsItsSizes()
    {
        QQuickWindow *const window = session().open();
        const QQuickItem *const sidebar = session().find(u"sidebar"_s)->parentItem();
        QCOMPARE(sidebar->width(), 200.0);
        QCOMPARE(window->minimumWidth(), 1200);
        QQuickItem *const content = window->property("contentItem").value<QQuickItem *>();
        QCOMPARE(window->minimumHeight() - (window->height() - content->height()), 700.0);

        const int width = window->width();
        for (const bool isShown : {false, true}) {
            session().key(Qt::Key_S, Qt::ControlModifier | Qt::AltModifier);
            QTRY_COMPARE(session().find(u"sidebar"_s) != nullptr, isShown);
            settle();
            QCOMPARE(window->width(), isShown ? width : window->minimumWidth());
        }

        for (const auto &[to, reached] : {std::pair(500, 220.0), std::pair(20, 180.0)}) {
            const QPoint handle(static_cast<int>(sidebar->width()), 500);
            QTest::mousePress(window, Qt::LeftButton, {}, handle);
            for (int step = 1; step <= 10; ++step)
                QTest::mouseMove(window, handle + QPoint((to - handle.x()) * step / 10, 0));
            QTest::mouseRelease(window, Qt::LeftButton, {}, QPoint(to, 500));
            settle();
            QCOMPARE(sidebar->width(), reached);
        }
    }

    void offersUpdatesOnlyWithAFeed_data()
    {
        const auto row = table<QUrl, bool>({"feed", "isOffered"});
        row("none", QUrl(QString(), QUrl::StrictMode), false);
        row("not over HTTPS", QUrl(u"http://updates.example/feed.xml"_s), false);
        row("over HTTPS", QUrl(u"https://updates.example/feed.xml"_s), true);
    }
    void offersUpdatesOnlyWithAFeed()
    {
        QFETCH(const QUrl, feed);
        session().setFeed(feed);
        session().open();
        session().key(Qt::Key_M, Qt::AltModifier);
        QTRY_VERIFY(session().find(u"checkForUpdates"_s));
        const QQuickItem *const item = session().find(u"checkForUpdates"_s);
        QTEST(item->isEnabled(), "isOffered");
        QCOMPARE(item->property("text"), u"Check for Updates..."_s);
        const QQuickItem *const about = session().find(u"about"_s);
        QCOMPARE(item->mapToScene({}).y(), about->mapToScene({}).y() + about->height());
    }

    void refusesArgumentsItDoesNotKnow_data()
    {
        const auto row = table<QStringList, QByteArray>({"arguments", "answer"});
        row("pictures", {u"pictures"_s}, "There is no file or folder \"pictures\".\n");
        row("screen", {u"--screen"_s, u"moon"_s}, "There is no screen of the name \"moon\".\n");
    }
    void refusesArgumentsItDoesNotKnow()
    {
        QFETCH(const QStringList, arguments);
        QProcess program;
        program.start(QString::fromLocal8Bit(MOSSLANTERN_PROGRAM), arguments);
        QTRY_COMPARE_WITH_TIMEOUT(program.state(), QProcess::NotRunning, 10'000);
        QCOMPARE(program.exitCode(), EXIT_FAILURE);
        // Qt may say before that there is no folder for sockets.
        QFETCH(const QByteArray, answer);
        QVERIFY(program.readAllStandardError().endsWith(answer));
    }

    void answersQuestionsWithoutADisplay()
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"QT_QPA_PLATFORM"_s, u"xcb"_s);
        environment.remove(u"DISPLAY"_s);
        const auto answer = [&](const QString &question) {
            QProcess program;
            program.setProcessEnvironment(environment);
            program.start(QString::fromLocal8Bit(MOSSLANTERN_PROGRAM), {question});
            return program.waitForFinished(10'000) && program.exitCode() == 0
                       ? program.readAllStandardOutput()
                       : QByteArray();
        };
        const auto trimmed = [](QByteArray text) { return text.trimmed(); };
        QVERIFY(trimmed(answer(u"--version"_s)).endsWith(MOSSLANTERN_VERSION));
        const QString help = QString::fromUtf8(answer(u"--help"_s));
        const QByteArray manual = readFile(QStringLiteral(MOSSLANTERN_MANUAL)).replace("\\-", "-");
        static const QRegularExpression option(u"--(?!help-all)[a-z]+"_s);
        QSet<QString> found;
        for (const QRegularExpressionMatch &match : option.globalMatch(help)) {
            QVERIFY2(manual.contains(match.captured().toUtf8()), qPrintable(match.captured()));
            found.insert(match.captured());
        }
        QVERIFY(found.contains(u"--screen"_s) && found.contains(u"--library"_s));
    }

    void saysWhoHoldsWhichRights()
    {
        session().open();
        session().key(Qt::Key_M, Qt::AltModifier);
        QTRY_VERIFY(session().find(u"about"_s));
        QVERIFY(session().click(u"about"_s));
        QTRY_VERIFY(session().find(u"legalNotices"_s));
        const QString notices = session().find(u"legalNotices"_s)->property("text").toString();
        for (const QString &part : {u"Mosslantern developers"_s, u"Permission is hereby granted"_s,
                                    u"Inter Project"_s, u"Reserved Font Name"_s, u"Lucide"_s, u"Qt"_s})
            QVERIFY2(notices.contains(part, Qt::CaseInsensitive), qPrintable(part));
    }

    void saysWhyTheLibraryCannotBeOpened()
    {
        QDir().mkpath(QFileInfo(session().library().storeFile()).path());
        const QByteArray foreign = "this is no library, and it must stay as it is\n";
        writeFile(session().library().storeFile(), foreign);

        MosslanternApp app(startOptions());
        QCOMPARE(app.start(), StartOutcome::shown);
        QVERIFY(!app.window());
        QWindow *const window = QGuiApplication::topLevelWindows().constLast();
        QVERIFY(window->isVisible());
        const auto *const message = window->findChild<QObject *>(u"failureMessage"_s);
        QVERIFY(message && message->property("text").toString().contains("not a Mosslantern library"_L1));
        QCOMPARE(window->property("folder").toUrl(),
                 QUrl::fromLocalFile(QFileInfo(session().library().storeFile()).path()));
        window->requestActivate();
        QVERIFY(QTest::qWaitForWindowActive(window));
        QTest::keyClick(window, Qt::Key_Escape);
        QTRY_VERIFY(!window->isVisible());
        QCOMPARE(readFile(session().library().storeFile()), foreign);
    }

    void offersWhatIsLeftOfADamagedLibrary_data()
    {
        const auto row = table<bool, bool>({"hasCopy", "isFoundLater"});
        row("copy", true, false);
        row("no copy", false, false);
        row("found by the check of the whole file", false, true);
    }

    void offersWhatIsLeftOfADamagedLibrary()
    {
        QFETCH(bool, hasCopy);
        QFETCH(bool, isFoundLater);
        const QString storeFile = session().library().storeFile();
        for (int i = 0; i < 300; ++i)
            session().library().addAsset(u"asset %1"_s.arg(i));
        session().library().close();
        if (hasCopy) {
            QVERIFY(QDir().mkpath(storeFile + u"-copies"_s));
            QVERIFY(QFile::copy(storeFile, storeFile + u"-copies/2026-03-01.sqlite"_s));
        }
        QByteArray bytes = readFile(storeFile);
        // In a row of the table, or in the number of free pages, which nobody needs at first.
        const qsizetype place = isFoundLater ? 39 : bytes.indexOf("asset 77");
        bytes[place] = static_cast<char>(bytes[place] ^ 1);
        writeFile(storeFile, bytes);

        MosslanternApp app(startOptions());
        QCOMPARE(app.start(), StartOutcome::shown);
        QCOMPARE(app.window() != nullptr, isFoundLater);
        QTRY_VERIFY(!app.window());
        QWindow *const window = QGuiApplication::topLevelWindows().constLast();
        const auto click = [&](const char *name) {
            auto *const button = window->findChild<QObject *>(QLatin1StringView(name));
            return button && button->property("visible").toBool() &&
                   QMetaObject::invokeMethod(button, "clicked");
        };
        QCOMPARE(click("useCopy"), hasCopy);
        if (!hasCopy)
            QVERIFY(click("rescueLibrary"));
        const auto *const message = window->findChild<QObject *>(u"failureMessage"_s);
        QVERIFY2(message->property("text").toString().startsWith(u"Your library has 300 records now."_s),
                 qPrintable(message->property("text").toString()));
        QVERIFY(!click("useCopy") && !click("rescueLibrary") && click("openRecovered"));
        QTRY_VERIFY(app.window());
    }

    void raisesTheFirstWindowOnASecondStart_data()
    {
        const auto row = table<bool, bool>({"byLink", "isExporting"});
        row("by the same path", false, false);
        row("through a link", true, false);
        row("during an export", false, true);
    }
    void raisesTheFirstWindowOnASecondStart()
    {
        QFETCH(const bool, byLink);
        QFETCH(const bool, isExporting);
        const QString folder = QFileInfo(session().library().storeFile()).path();
        const QString link = session().library().path(u"link"_s);
        QVERIFY(!byLink || QFile::link(folder, link));
        QImage picture(8, 8, QImage::Format_RGB32);
        picture.fill(Qt::red);
        QVERIFY(QDir().mkpath(session().library().path(u"photos"_s)));
        for (const auto &name : {u"photos/1.png"_s, u"photos/2.png"_s, u"late one.png"_s})
            QVERIFY(picture.save(session().library().path(name)));
        StartOptions options = startOptions();
        options.request = {.pictures = {session().library().path(u"photos"_s)}, .destination = u"create"_s};
        MosslanternApp first(options);
        QCOMPARE(first.start(), StartOutcome::shown);
        QVERIFY(first.window());
        QVERIFY(QTest::qWaitForWindowExposed(first.window()));

        // The first one answers in its event loop, the second one waits: so it must be another process.
        QProcess second;
        auto *const context =
            first.window()->property("view").value<QObject *>()->property("context").value<ScreenContext *>();
        QTRY_COMPARE(context->store().all<Asset>().size(), size_t(2));
        const auto *const content = first.window()->findChild<ContentView *>();
        const auto tab = [&] {
            return first.window()->findChild<QObject *>(u"slideshowsScreen"_s)->property("currentTab");
        };
        QTRY_COMPARE(content->selectedScreen(), AppScreen::slideshows);
        QCOMPARE(tab(), 0);
        std::optional<RunningWork::Piece> slides;
        if (isExporting)
            slides.emplace(context->work(), RunningWork::Kind::exporting);
        second.setWorkingDirectory(session().library().path(u"photos"_s));
        second.start(
            QString::fromLocal8Bit(MOSSLANTERN_PROGRAM),
            {u"--library"_s, byLink ? link : folder, u"--screen"_s, u"history"_s, u"../late one.png"_s});
        first.window()->showMinimized();
        // While a slide is drawn there is no event loop.
        if (isExporting)
            QVERIFY(second.waitForFinished(10'000));
        QTRY_COMPARE_WITH_TIMEOUT(second.state(), QProcess::NotRunning, 10'000);
        QCOMPARE(second.exitCode(), 0);
        QTRY_VERIFY(!first.window()->windowStates().testFlag(Qt::WindowMinimized));
        QTRY_COMPARE(context->store().all<Asset>().size(), size_t(3));
        // What is under way is not left.
        QTRY_COMPARE(tab(), isExporting ? 0 : 1);
    }

    void remembersTheWindow()
    {
        const QString file = session().library().path(u"state.ini"_s);
        QWindow before;
        before.setGeometry(40, 50, 640, 480);
        rememberWindow(before, 100, file);
        before.setWindowStates(Qt::WindowFullScreen);
        rememberWindow(before, 0, file);
        QWindow after;
        after.setMinimumSize({700, 100});
        restoreWindow(after, file);
        QCOMPARE(after.geometry(), QRect(40, 50, 740, 480));
        before.setWindowStates(Qt::WindowNoState);

        before.setGeometry(90'000, 50, 640, 480);
        rememberWindow(before, 0, file);
        QWindow offScreen;
        restoreWindow(offScreen, file);
        QVERIFY(offScreen.x() < 90'000);
    }

    void hasEverySymbolItNames()
    {
        static const QRegularExpression named(u"\\b(?:symbol|name): \"([a-z0-9.]+)\""_s);
        const QStringList known = symbolNames();
        int found = 0;
        QDirIterator files(u":/qt/qml/Mosslantern"_s, {u"*.qml"_s}, QDir::Files,
                           QDirIterator::Subdirectories);
        while (files.hasNext()) {
            const QString text = QString::fromUtf8(readFile(files.next()));
            for (const QRegularExpressionMatch &match : named.globalMatch(text)) {
                QVERIFY2(known.contains(match.captured(1)), qPrintable(match.captured(1)));
                ++found;
            }
        }
        QVERIFY(found > 10);
        for (const QString &name : known) {
            const QImage image = drawSymbol(name, {24, 24}, Qt::white);
            QVERIFY2(!image.isNull() && image != drawSymbol(name, {24, 24}, Qt::transparent),
                     qPrintable(name));
        }
    }
};

QTEST_MAIN(ShellTest)
#include "tst_shell.moc"
