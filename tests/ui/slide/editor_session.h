#pragma once

#include "tests/model/test_library.h"

#include <QtQml/QQmlComponent>
#include <QtQuick/QQuickItem>
#include <QtQuick/QQuickView>
#include <QtTest/QtTest>

namespace mosslantern {

/// A window that shows one item of the editor, on a library of its own.
class EditorSession
{
public:
    EditorSession();

    TestLibrary &library() { return m_library; }
    Store &store() { return m_library.store(); }
    QQuickView &window() { return *m_view; }

    /// A slideshow whose slides show `picture` (a file of any name), one slide for each main text.
    Slideshow *addSlideshow(const QString &picture, const QStringList &texts,
                            std::optional<AspectRatio> shape = AspectRatio::tiktok,
                            const QUuid &batchId = {});

    /// A file with a picture of gentle colours, no two regions alike.
    QString addPicture(const QString &name, QSize size);

    /// Shows the type of this name ("SlidePreviewView") alone in a window of `size` points.
    QQuickItem *show(const QString &type, const QVariantMap &properties, QSize size);
    /// The same for an item as QML writes it.
    QQuickItem *showSource(const QString &item, const QVariantMap &properties, QSize size);

    /// Closes the window; what it worked with may go after that.
    void close() { m_view.reset(); }

    /// The item with this name, as long as it is visible; null when there is none.
    QQuickItem *find(const QString &objectName) const;

    /// The keyboard: one key for each character.
    void type(const QString &text);

    /// Lets the window follow what has changed.
    void settle();
    QImage grab();

private:
    TestLibrary m_library;
    std::unique_ptr<QQuickView> m_view;
};

/// The largest difference between two images in one channel; 256 when their sizes differ.
int difference(const QImage &a, const QImage &b);

/// Makes the application's fonts known; stops the program when they cannot be used.
void prepareEditorTest();

/// Runs a test in an application whose screen has `pixelRatio` pixels to a point.
template <typename Test>
int runEditorTest(int argc, char **argv, const QByteArray &pixelRatio = "1")
{
    qputenv("QT_SCALE_FACTOR", pixelRatio);
    const QGuiApplication application(argc, argv);
    prepareEditorTest();
    Test test;
    return QTest::qExec(&test, argc, argv);
}

} // namespace mosslantern
