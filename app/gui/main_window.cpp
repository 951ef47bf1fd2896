#include "app/gui/main_window.h"

#include "app/update/spu_updater.h"
#include "ui/common/accessible_item.h"
#include "ui/common/screen_context.h"

#include <QtQml/QQmlApplicationEngine>
#include <QtQml/QQmlComponent>
#include <QtQuick/QQuickItem>
#include <QtQuick/QQuickWindow>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

QUrl qmlFile(QLatin1StringView name)
{
    return QUrl(u"qrc:/qt/qml/Mosslantern/%1.qml"_s.arg(name));
}

constexpr auto mainView = "App/MainView"_L1;
constexpr auto firstScreen = "Library/AssetLibraryScreen"_L1;
constexpr auto mainWindow = "App/MainWindow"_L1;

} // namespace

void prepareMainWindow(QQmlEngine &engine)
{
    // What no component holds on to may be dropped again before it is used.
    for (const auto &file : {mainView, firstScreen, mainWindow})
        new QQmlComponent(&engine, qmlFile(file), QQmlComponent::Asynchronous, &engine);
}

std::unique_ptr<QQuickItem> makeMainView(QQmlEngine &engine, ScreenContext &context, SPUUpdater &updater)
{
    QQmlComponent component(&engine, qmlFile(mainView));
    QObject *const view = component.createWithInitialProperties(
        {{u"context"_s, QVariant::fromValue(&context)}, {u"updater"_s, QVariant::fromValue(&updater)}});
    if (!view)
        qWarning("%s", qPrintable(component.errorString()));
    return std::unique_ptr<QQuickItem>(qobject_cast<QQuickItem *>(view));
}

QQuickWindow *makeMainWindow(QQmlApplicationEngine &engine, std::unique_ptr<QQuickItem> view)
{
    installAccessibleItems();
    engine.setInitialProperties({{u"view"_s, QVariant::fromValue(view.get())}});
    engine.load(qmlFile(mainWindow));
    auto *const window = engine.rootObjects().isEmpty()
                             ? nullptr
                             : qobject_cast<QQuickWindow *>(engine.rootObjects().constLast());
    if (window)
        view.release()->setParent(window);
    return window;
}

} // namespace mosslantern
