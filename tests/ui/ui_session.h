#pragma once

#include "app/update/spu_updater.h"
#include "content/openai_service.h"
#include "tests/model/test_library.h"
#include "tests/ui/test_file_panels.h"
#include "ui/common/screen_context.h"

#include <QtQml/QQmlApplicationEngine>
#include <QtQuick/QQuickItem>
#include <QtQuick/QQuickWindow>

namespace mosslantern {

/// A window of the application on a library of its own.
class UiSession
{
public:
    UiSession();
    ~UiSession();

    TestLibrary &library() { return m_library; }
    Store &store() { return m_library.store(); }
    TestFilePanels &panels() { return m_panels; }

    /// Where updates are looked for, before the window opens; nowhere at first.
    void setFeed(const QUrl &feed) { m_feed = feed; }
    SPUUpdater &updater() { return *m_updater; }

    /// Where the AI service is, before the window opens; nowhere at first.
    void setServiceUrl(const QString &url) { m_serviceUrl = url; }
    Preferences preferences() const { return Preferences(m_library.path(QStringLiteral("preferences.ini"))); }

    /// Opens the main window; waits until it shows its first frame.
    QQuickWindow *open();
    /// Ends the application; open() starts it again on the same library.
    void close();
    QQuickWindow *window() const { return m_window; }
    /// What it shows.
    QQuickItem *view() const { return m_view; }

    /// The visible item of this name; null when there is none. `nth` counts from the top left.
    QQuickItem *find(const QString &objectName, int nth = 0) const;
    int count(const QString &objectName) const;

    /// A visible item that shows exactly this text.
    QQuickItem *findText(const QString &text) const;

    /// The mouse on the middle of an item; false, and a failure, when it is not there or disabled.
    bool click(const QString &objectName, int nth = 0, Qt::MouseButton button = Qt::LeftButton,
               Qt::KeyboardModifiers modifiers = {});
    bool doubleClick(const QString &objectName);
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {});
    /// A key that is held down so long that it repeats.
    void hold(Qt::Key key);
    void type(const QString &text);

    /// Lets the window draw what has changed.
    void settle();
    QImage grab();

private:
    QQuickItem *waitFor(const QString &objectName, int nth) const;

    TestLibrary m_library;
    TestFilePanels m_panels;
    QUrl m_feed{QString(), QUrl::StrictMode};
    std::unique_ptr<SPUUpdater> m_updater;
    QString m_serviceUrl = QStringLiteral("http://127.0.0.1:9");
    std::unique_ptr<OpenAIService> m_service;
    std::unique_ptr<ScreenContext> m_context;
    std::unique_ptr<QQmlApplicationEngine> m_engine;
    quint64 m_keyTime = 0; // of the events of a held key, milliseconds
    QQuickWindow *m_window = nullptr;
    QQuickItem *m_view = nullptr;
};

} // namespace mosslantern
