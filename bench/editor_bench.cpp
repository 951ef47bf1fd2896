// The slideshow editor on five slides with photographs of 24 megapixels, in a window of 1200 by 800 points:
// how long it takes to open, how long from a mouse move or a key to the frame that shows it, and its memory.

#include "content/openai_service.h"
#include "tests/ui/slide/editor_session.h"
#include "tests/ui/test_file_panels.h"
#include "ui/editor/slideshow_detail_view.h"
#include "ui/slide/draggable_text_view.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QRandomGenerator>

#include <algorithm>
#include <cstdio>

using namespace mosslantern;
using namespace Qt::StringLiterals;

namespace {

/// Milliseconds until the next frame is on the screen.
double untilFrame(QQuickWindow &window, const std::function<void()> &act)
{
    QElapsedTimer timer;
    QEventLoop loop;
    const auto swapped = QObject::connect(&window, &QQuickWindow::frameSwapped, &loop, &QEventLoop::quit,
                                          Qt::QueuedConnection);
    timer.start();
    act();
    loop.exec();
    QObject::disconnect(swapped);
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

void report(const char *what, QList<double> times)
{
    std::ranges::sort(times);
    std::printf("%-34s median %6.1f ms, largest %6.1f ms\n", what, times[times.size() / 2],
                times.constLast());
}

double memory(const QByteArray &field)
{
    QFile status(u"/proc/self/status"_s);
    static_cast<void>(status.open(QIODevice::ReadOnly));
    for (const QByteArray &line : status.readAll().split('\n')) {
        if (line.startsWith(field))
            return line.simplified().split(' ')[1].toDouble() / 1024;
    }
    return 0;
}

QString photograph(TestLibrary &library)
{
    QImage image(6000, 4000, QImage::Format_RGB32);
    QRandomGenerator random(7);
    for (int y = 0; y < image.height(); ++y) {
        auto *const row = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const int noise = static_cast<int>(random.generate() & 15);
            row[x] = qRgb(x * 200 / 6000 + noise, y * 200 / 4000 + noise, 90 + noise);
        }
    }
    const QString path = library.path(u"photograph.jpg"_s);
    image.save(path, "jpg", 90);
    return path;
}

} // namespace

int main(int argc, char **argv)
{
    const QGuiApplication application(argc, argv);
    prepareEditorTest();
    EditorSession session;
    TestFilePanels panels;
    OpenAIService service;
    ScreenContext context(session.store(), panels, service, Preferences(QString()));
    Slideshow *const slideshow = session.addSlideshow(
        photograph(session.library()), {u"First"_s, u"Second"_s, u"Third"_s, u"Fourth"_s, u"Fifth"_s});
    const double before = memory("VmRSS");

    // As in the application, the window is there before the editor opens in it.
    Slideshow *const empty = session.store().insert(std::make_unique<Slideshow>(
        std::vector<std::unique_ptr<Slide>>(), std::nullopt, QUuid(), std::nullopt));
    const auto properties = [&](Slideshow *shown) {
        return QVariantMap{{u"context"_s, QVariant::fromValue(&context)},
                           {u"slideshow"_s, QVariant::fromValue(shown)}};
    };
    const QPointer<QQuickItem> first =
        session.show(u"SlideshowDetailScreen"_s, properties(empty), {1200, 800});
    first->setVisible(false);
    session.settle();
    QQmlComponent component(session.window().engine(),
                            u"qrc:/qt/qml/Mosslantern/Editor/SlideshowDetailScreen.qml"_s);
    QElapsedTimer opening;
    opening.start();
    const double toFrame = untilFrame(session.window(), [&] {
        auto *const screen =
            qobject_cast<QQuickItem *>(component.createWithInitialProperties(properties(slideshow)));
        screen->setParentItem(session.window().contentItem());
        screen->setParent(session.window().contentItem());
        screen->setSize({1200, 800});
    });
    const auto block = [&] {
        return session.find(u"canvasLoader"_s)->findChild<DraggableTextView *>(u"mainBlock"_s);
    };
    const auto isLoaded = [&] { return session.find(u"canvasBackground"_s)->property("isLoaded").toBool(); };
    while (!isLoaded())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    untilFrame(session.window(), [&] { session.window().update(); });
    std::printf("%-34s %.0f ms, with its picture %lld ms\n", "opening, to the first canvas", toFrame,
                static_cast<long long>(opening.elapsed()));

    QQuickWindow &window = session.window();
    auto *const detail = window.contentItem()->findChildren<SlideshowDetailView *>().constLast();
    for (int i = 1; i < 5; ++i) {
        detail->select(i);
        session.settle();
        while (!isLoaded())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    QTest::qWait(1500);
    detail->select(0);
    QTest::qWait(300);

    block()->setText(u"A block of text\nof several lines\nthat is dragged"_s);
    QTest::qWait(100);
    const QQuickItem *const content = session.find(u"canvasContent"_s);
    const QPoint start = content->mapToScene(QPointF(content->width(), content->height()) / 2).toPoint();
    QTest::mousePress(&window, Qt::LeftButton, {}, start);
    QTest::mouseMove(&window, start + QPoint(12, 0));
    QTest::qWait(100);
    QList<double> moves;
    for (int i = 0; i < 180; ++i) {
        const QPoint to =
            start + QPoint(qRound(100 * std::sin(i / 9.0)), qRound(150 * std::sin(i / 13.0 + 1)));
        moves.append(untilFrame(window, [&] { QTest::mouseMove(&window, to); }));
    }
    QTest::mouseRelease(&window, Qt::LeftButton, {}, start);
    report("a move of a dragged block", moves);

    block()->setStyle(TextStyle::neon);
    block()->setScale(3);
    block()->setText(u"Line one\nline two\nline three\nline four\nline five\nline six"_s);
    block()->startEditing();
    QTest::qWait(300);
    QList<double> keys;
    for (int i = 0; i < 40; ++i)
        keys.append(untilFrame(window, [&] { session.type(QString(QChar(u'a' + i % 26))); }));
    report("a key at six lines, neon, scale 3", keys);

    block()->setText(
        u"Line 🎉 one 🔥\nline 🚀 two ☀️\nline 💡 three ✅\nline 🎯 four 😀\nline ❤️ five 📚\nline six 👩‍👩‍👧 🇩🇪"_s);
    QTest::qWait(300);
    keys.clear();
    for (int i = 0; i < 40; ++i)
        keys.append(untilFrame(window, [&] { session.type(QString(QChar(u'a' + i % 26))); }));
    report("the same with twelve emoji", keys);

    std::printf("%-34s %.0f MB, of which %.0f MB before it opened; at most %.0f MB\n", "memory",
                memory("VmRSS"), before, memory("VmHWM"));
    session.close();
}
