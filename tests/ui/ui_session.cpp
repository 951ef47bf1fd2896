#include "tests/ui/ui_session.h"

#include "app/gui/main_window.h"

#include <QtTest/QtTest>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

void collect(QQuickItem *item, const std::function<bool(QQuickItem *)> &wanted, QList<QQuickItem *> &found)
{
    if (!item->isVisible())
        return;
    if (wanted(item))
        found.append(item);
    for (QQuickItem *child : item->childItems())
        collect(child, wanted, found);
}

QList<QQuickItem *> visibleItems(QQuickWindow *window, const std::function<bool(QQuickItem *)> &wanted)
{
    QList<QQuickItem *> found;
    collect(window->contentItem(), wanted, found);
    std::ranges::stable_sort(found, [](QQuickItem *a, QQuickItem *b) {
        const QPointF p = a->mapToScene({});
        const QPointF q = b->mapToScene({});
        return std::pair(p.y(), p.x()) < std::pair(q.y(), q.x());
    });
    return found;
}

} // namespace

UiSession::UiSession() = default;

UiSession::~UiSession()
{
    m_engine.reset();
}

QQuickWindow *UiSession::open()
{
    m_service = std::make_unique<OpenAIService>(m_serviceUrl);
    m_context = std::make_unique<ScreenContext>(store(), m_panels, *m_service, preferences());
    m_engine = std::make_unique<QQmlApplicationEngine>();
    m_engine->addImportPath(u"qrc:/qt/qml"_s);
    m_updater =
        std::make_unique<SPUUpdater>(UpdaterSettings{m_feed, u"1.2"_s, m_library.path(u"state.ini"_s)});
    std::unique_ptr<QQuickItem> view = makeMainView(*m_engine, *m_context, *m_updater);
    m_view = view.get();
    m_window = view ? makeMainWindow(*m_engine, std::move(view)) : nullptr;
    if (!m_window)
        qFatal("The window cannot be made.");
    m_window->show();
    if (!QTest::qWaitForWindowExposed(m_window))
        qFatal("The window does not show.");
    m_window->requestActivate();
    static_cast<void>(QTest::qWaitForWindowActive(m_window));
    settle();
    return m_window;
}

void UiSession::close()
{
    m_engine.reset();
    m_context.reset();
    m_library.close();
}

QQuickItem *UiSession::find(const QString &objectName, int nth) const
{
    return visibleItems(m_window, [&](QQuickItem *item) { return item->objectName() == objectName; })
        .value(nth);
}

int UiSession::count(const QString &objectName) const
{
    return static_cast<int>(
        visibleItems(m_window, [&](QQuickItem *item) { return item->objectName() == objectName; }).size());
}

QQuickItem *UiSession::findText(const QString &text) const
{
    return visibleItems(m_window, [&](QQuickItem *item) { return item->property("text").toString() == text; })
        .value(0);
}

QQuickItem *UiSession::waitFor(const QString &objectName, int nth) const
{
    QQuickItem *item = nullptr;
    const bool isThere = QTest::qWaitFor(
        [&] {
            item = find(objectName, nth);
            return item && item->isEnabled() && !item->size().isEmpty();
        },
        2000);
    if (!isThere)
        qWarning("%s cannot be clicked", qPrintable(objectName));
    return isThere ? item : nullptr;
}

bool UiSession::click(const QString &objectName, int nth, Qt::MouseButton button,
                      Qt::KeyboardModifiers modifiers)
{
    const QQuickItem *const item = waitFor(objectName, nth);
    if (!item)
        return false;
    const QPointF middle = item->mapToScene(item->boundingRect().center());
    QTest::mouseClick(m_window, button, modifiers, middle.toPoint());
    settle();
    return true;
}

bool UiSession::doubleClick(const QString &objectName)
{
    const QQuickItem *const item = waitFor(objectName, 0);
    if (!item)
        return false;
    QTest::mouseDClick(m_window, Qt::LeftButton, {},
                       item->mapToScene(item->boundingRect().center()).toPoint());
    settle();
    return true;
}

void UiSession::hold(Qt::Key key)
{
    const QString text = key == Qt::Key_Return ? u"\r"_s : key == Qt::Key_Space ? u" "_s : QString();
    const auto send = [&](QEvent::Type type, bool isMarked) {
        QKeyEvent event(type, key, {}, text, isMarked);
        event.setTimestamp(m_keyTime);
        QCoreApplication::sendEvent(m_window, &event);
        settle();
    };
    m_keyTime += 1000;
    send(QEvent::KeyPress, false);
    // As X11 repeats it, of which Qt marks some.
    for (const bool isMarked : {false, true, false, false}) {
        m_keyTime += 200;
        send(QEvent::KeyRelease, isMarked);
        send(QEvent::KeyPress, isMarked);
    }
    m_keyTime += 20;
    send(QEvent::KeyRelease, false);
}

void UiSession::key(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(m_window, key, modifiers);
    settle();
}

void UiSession::type(const QString &text)
{
    QTest::sendKeyEvent(QTest::Click, m_window, Qt::Key_unknown, text, Qt::NoModifier);
    settle();
}

void UiSession::settle()
{
    constexpr int patience = 500;
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    // The signal comes from another thread, perhaps when nobody waits for it any more.
    const auto isDrawn = std::make_shared<bool>(false);
    const auto drawn =
        QObject::connect(m_window, &QQuickWindow::frameSwapped, m_window, [isDrawn] { *isDrawn = true; });
    m_window->update();
    static_cast<void>(QTest::qWaitFor([isDrawn] { return *isDrawn; }, patience));
    QObject::disconnect(drawn);
}

QImage UiSession::grab()
{
    settle();
    return m_window->grabWindow();
}

} // namespace mosslantern
