#include "tests/ui/window_test.h"

namespace mosslantern {

using namespace Qt::StringLiterals;

QUrl WindowTest::pictureFile(const QString &name, const QColor &color)
{
    const QString path = m_folder.filePath(name);
    QDir().mkpath(QFileInfo(path).path());
    QImage image(40, 30, QImage::Format_RGB32);
    image.fill(color);
    if (!image.save(path, "PNG"))
        qFatal("%s cannot be written", qPrintable(path));
    return QUrl::fromLocalFile(path);
}

void WindowTest::initTestCase()
{
    QStandardPaths::setTestModeEnabled(true);
    QQuickWindow::setTextRenderType(QQuickWindow::NativeTextRendering);
    const Result<> fonts = useInterfaceFonts();
    QVERIFY2(fonts, fonts ? "" : qPrintable(fonts.error().message));
}

void WindowTest::init()
{
    // What QML and text items complain of.
    QTest::failOnWarning(QRegularExpression(u"^(qrc|file):.*\\.qml|QTextCursor"_s));
    m_session = std::make_unique<UiSession>();
}

} // namespace mosslantern
