// First frame of an empty Qt Quick window, in a program of its own, in milliseconds from $STARTED
// (nanoseconds since 1970): what the first frame of the application is compared with. bench/window.sh runs
// it.

#include <QtCore/QDateTime>
#include <QtGui/QGuiApplication>
#include <QtQml/QQmlApplicationEngine>
#include <QtQuick/QQuickWindow>

#include <cstdio>
#include <cstdlib>

int main(int argc, char **argv)
{
    const QGuiApplication application(argc, argv);
    QQmlApplicationEngine engine;
    engine.loadData("import QtQuick\nWindow { width: 1280; height: 830; visible: true }");
    const auto *const window = qobject_cast<QQuickWindow *>(engine.rootObjects().value(0));
    if (!window)
        return EXIT_FAILURE;
    const auto printTime = [] {
        const double started = qEnvironmentVariable("STARTED").toDouble() / 1e6;
        std::printf("%.0f\n", static_cast<double>(QDateTime::currentMSecsSinceEpoch()) - started);
        std::fflush(stdout);
        std::_Exit(EXIT_SUCCESS);
    };
    QObject::connect(window, &QQuickWindow::frameSwapped, window, printTime, Qt::DirectConnection);
    return QGuiApplication::exec();
}
