#include "model/store.h"
#include "ui/common/file_panels.h"
#include "ui/common/interface_fonts.h"
#include "ui/common/screen_context.h"

#include <QtQml/QQmlApplicationEngine>
#include <QtQuick/QQuickWindow>
#include <QtWidgets/QApplication>

using namespace mosslantern;
using namespace Qt::StringLiterals;

namespace {
class NoPanels : public FilePanels
{
    void openImages(Picked picked) override { picked(QList<QUrl>()); }
};
} // namespace

int main(int argc, char **argv)
{
    QQuickWindow::setTextRenderType(QQuickWindow::NativeTextRendering);
    const QApplication application(argc, argv);
    if (const auto fonts = registerInterfaceFonts(); !fonts)
        qFatal("%s", qPrintable(fonts.error().message));
    const auto store = Store::open(LibraryLocation::inFolder(QString::fromLocal8Bit(argv[1])));
    if (!store)
        qFatal("%s", qPrintable(store.error().message));
    NoPanels panels;
    ScreenContext context(**store, panels);
    QQmlApplicationEngine engine;
    engine.addImportPath(u"qrc:/qt/qml"_s);
    engine.setInitialProperties({{u"context"_s, QVariant::fromValue(&context)}, {u"visible"_s, true}});
    engine.load(u"qrc:/qt/qml/Mosslantern/App/MainWindow.qml"_s);
    if (engine.rootObjects().isEmpty())
        return 1;
    return application.exec();
}
