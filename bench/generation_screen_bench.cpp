// The screen that makes slideshows, with 200 entries over photographs, in a window of 1280 by 830 points: how
// long it takes from a key or another change to the frame that shows it.
// Usage: xvfb-run -a -s '-screen 0 1920x1200x24' generation_screen_bench [ENTRIES]

#include "model/image_files.h"
#include "tests/ui/ui_session.h"
#include "ui/common/interface_fonts.h"
#include "ui/generator/slideshows_view.h"

#include <QtCore/QDir>
#include <QtCore/QElapsedTimer>
#include <QtTest/QtTest>
#include <QtWidgets/QApplication>

#include <algorithm>
#include <cstdio>

using namespace mosslantern;
using namespace Qt::StringLiterals;

namespace {

QString document(int entries)
{
    QStringList texts;
    for (int i = 1; i <= entries; ++i) {
        texts.append(
            u"    {\n      \"main\": \"Reason %1 to get up early\",\n      \"subtitle\": \"number %1\"\n    }"_s
                .arg(i));
    }
    return u"{\n  \"slides\": [\n"_s + texts.join(u",\n"_s) + u"\n  ]\n}"_s;
}

class Bench
{
public:
    explicit Bench(int entries);
    void run();

private:
    QQuickWindow &window() { return *m_session.window(); }
    SlideshowGenerator &generator() { return *window().findChild<SlideshowsView *>()->generator(); }
    LivePreview &preview() { return *window().findChild<SlideshowsView *>()->preview(); }

    /// Milliseconds until the next frame is on the screen.
    double untilFrame(const std::function<void()> &act);
    template <typename Act>
    void measure(const char *what, int times, Act act);
    void type(const QString &text)
    {
        QTest::sendKeyEvent(QTest::Click, &window(), Qt::Key_unknown, text, {});
    }
    void editContentAt(const QString &found);

    int m_entries;
    UiSession m_session;
    QList<double> m_acted;
};

Bench::Bench(int entries)
    : m_entries(entries)
{
    const QDir nature(u"/usr/share/backgrounds/mate/nature"_s);
    for (const QFileInfo &file : nature.entryInfoList({u"*.jpg"_s}, QDir::Files, QDir::Name))
        static_cast<void>(importAsset(QUrl::fromLocalFile(file.filePath()), m_session.store()));
    m_session.open();
    m_session.click(u"sidebarRow2"_s);
    generator().setTextInput(document(entries));
    QTest::qWait(3000);
}

double Bench::untilFrame(const std::function<void()> &act)
{
    QElapsedTimer timer;
    QEventLoop loop;
    const auto swapped = QObject::connect(&window(), &QQuickWindow::frameSwapped, &loop, &QEventLoop::quit,
                                          Qt::QueuedConnection);
    timer.start();
    act();
    m_acted.append(static_cast<double>(timer.nsecsElapsed()) / 1e6);
    loop.exec();
    QObject::disconnect(swapped);
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

template <typename Act>
void Bench::measure(const char *what, int times, Act act)
{
    QList<double> taken;
    m_acted.clear();
    for (int i = 0; i < times; ++i) {
        taken.append(untilFrame([&] { act(i); }));
        QTest::qWait(50);
    }
    std::ranges::sort(taken);
    std::ranges::sort(m_acted);
    std::printf("%-48s median %5.1f ms, largest %5.1f ms, before its frame begins %4.1f ms\n", what,
                taken[taken.size() / 2], taken.constLast(), m_acted[m_acted.size() / 2]);
}

void Bench::editContentAt(const QString &found)
{
    QQuickItem *const panel = m_session.find(u"generatorPanel"_s);
    panel->setProperty("contentY", 600);
    QQuickItem *const area = m_session.find(u"contentEditorArea"_s);
    area->forceActiveFocus(Qt::TabFocusReason);
    area->setProperty("cursorPosition", generator().textInput().indexOf(found) + found.size());
    QTest::qWait(500);
}

void Bench::run()
{
    const auto letter = [&](int i) { type(QString(QChar(u'a' + i % 26))); };
    measure("a frame in which nothing is new", 40, [&](int) { window().update(); });
    editContentAt(u"Reason 2 "_s);
    measure("a key in the text of a slide that is seen", 40, letter);
    editContentAt(u"Reason %1 "_s.arg(m_entries / 2));
    measure("a key in the text of a slide that is not", 40, letter);
    editContentAt(u"Reason %1 "_s.arg(m_entries / 2));
    measure("a line break in it, taken back by the next key", 40,
            [&](int i) { QTest::keyClick(&window(), i % 2 ? Qt::Key_Backspace : Qt::Key_Return); });
    preview().setIndex(1);
    preview().mainBlock()->startEditing();
    QTest::qWait(500);
    measure("a key in the live preview", 40, letter);
    preview().endEditing();
    const double end = generator().templateTextScale();
    measure("a step of the main text's size", 40,
            [&](int i) { generator().setTemplateTextScale(end + (i + 1) * 0.01); });
    measure("to the next entry", 40, [&](int i) { preview().setIndex(2 + i); });
}

} // namespace

int main(int argc, char **argv)
{
    QQuickWindow::setTextRenderType(QQuickWindow::NativeTextRendering);
    const QApplication application(argc, argv);
    if (const Result<> fonts = useInterfaceFonts(); !fonts)
        qFatal("%s", qPrintable(fonts.error().message));
    Bench(argc > 1 ? QByteArray(argv[1]).toInt() : 200).run();
}
