#include "tests/ui/slide/editor_session.h"

#include "model/image_files.h"
#include "ui/common/interface_fonts.h"

#include <QtGui/QPainter>
#include <QtQml/QQmlEngine>

namespace mosslantern {

using namespace Qt::StringLiterals;

void prepareEditorTest()
{
    if (const Result<> fonts = useInterfaceFonts(); !fonts)
        qFatal("%s", qPrintable(fonts.error().message));
}

int difference(const QImage &a, const QImage &b)
{
    if (a.size() != b.size())
        return 256;
    const QImage p = a.convertToFormat(QImage::Format_RGBA8888_Premultiplied);
    const QImage q = b.convertToFormat(QImage::Format_RGBA8888_Premultiplied);
    int largest = 0;
    for (int y = 0; y < p.height(); ++y) {
        for (int x = 0; x < 4 * p.width(); ++x)
            largest = std::max(largest, std::abs(p.constScanLine(y)[x] - q.constScanLine(y)[x]));
    }
    return largest;
}

EditorSession::EditorSession()
{
    QTest::failOnWarning(QRegularExpression(u"QTextCursor"_s));
}

QString EditorSession::addPicture(const QString &name, QSize size)
{
    QImage image(size, QImage::Format_RGB32);
    QLinearGradient gradient(0, 0, size.width(), size.height());
    gradient.setStops({{0, QColor(30, 60, 90)}, {0.5, QColor(200, 120, 60)}, {1, QColor(40, 160, 120)}});
    QPainter painter(&image);
    painter.fillRect(image.rect(), gradient);
    painter.fillRect(QRect(QPoint(), size / 4), QColor(10, 20, 30));
    painter.end();
    const QString path = m_library.path(name);
    if (!image.save(path))
        qFatal("%s cannot be written", qPrintable(path));
    return path;
}

Slideshow *EditorSession::addSlideshow(const QString &picture, const QStringList &texts,
                                       std::optional<AspectRatio> shape, const QUuid &batchId)
{
    const auto asset = importAsset(QUrl::fromLocalFile(picture), store());
    std::vector<std::unique_ptr<Slide>> slides;
    for (const QString &text : texts)
        slides.push_back(std::make_unique<Slide>(*asset, text, QString(), TextStyle::classic, slides.size()));
    return store().insert(std::make_unique<Slideshow>(std::move(slides), shape, batchId, std::nullopt));
}

QQuickItem *EditorSession::show(const QString &type, const QVariantMap &properties, QSize size)
{
    return showSource(type + u" {}"_s, properties, size);
}

QQuickItem *EditorSession::showSource(const QString &item, const QVariantMap &properties, QSize size)
{
    m_view = std::make_unique<QQuickView>();
    m_view->engine()->addImportPath(u"qrc:/qt/qml"_s);
    m_view->setColor(Qt::black);
    m_view->setResizeMode(QQuickView::SizeRootObjectToView);
    m_view->resize(size);
    m_view->setInitialProperties(properties);
    QQmlComponent component(m_view->engine());
    const QByteArray source =
        "import Mosslantern.Common\nimport Mosslantern.Slide\nimport Mosslantern.Editor\n" + item.toUtf8();
    component.setData(source, QUrl());
    QObject *const root = component.createWithInitialProperties(properties);
    if (!root)
        qFatal("%s", qPrintable(component.errorString()));
    m_view->setContent(QUrl(), nullptr, root);
    m_view->show();
    if (!QTest::qWaitForWindowExposed(m_view.get()))
        qFatal("The window does not show.");
    m_view->requestActivate();
    static_cast<void>(QTest::qWaitForWindowActive(m_view.get()));
    settle();
    return m_view->rootObject();
}

namespace {

QQuickItem *findIn(QQuickItem *item, const QString &objectName)
{
    if (!item->isVisible())
        return nullptr;
    if (item->objectName() == objectName)
        return item;
    for (QQuickItem *child : item->childItems()) {
        if (QQuickItem *const found = findIn(child, objectName))
            return found;
    }
    return nullptr;
}

} // namespace

QQuickItem *EditorSession::find(const QString &objectName) const
{
    return findIn(m_view->contentItem(), objectName);
}

void EditorSession::type(const QString &text)
{
    for (const QChar character : text)
        QTest::sendKeyEvent(QTest::Click, m_view.get(), Qt::Key_unknown, QString(character), {});
}

void EditorSession::settle()
{
    for (int i = 0; i < 3; ++i) {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

QImage EditorSession::grab()
{
    settle();
    return m_view->grabWindow();
}

} // namespace mosslantern
