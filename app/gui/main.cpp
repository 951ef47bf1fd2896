#include "app/gui/mosslantern_app.h"
#include "app/identity.h"

#include <QtCore/QCommandLineParser>
#include <QtCore/QDir>
#include <QtCore/QStandardPaths>
#include <QtWidgets/QApplication>

#include <csignal>
#include <cstdio>
#include <cstdlib>

using namespace mosslantern;
using namespace Qt::StringLiterals;

namespace {

constexpr auto contentLibrary = "content-library"_L1;
constexpr auto slideshowEditor = "slideshow-editor"_L1;

QUrl updateFeed()
{
    constexpr auto variable = "MOSSLANTERN_UPDATE_FEED";
    const QString address = qEnvironmentVariableIsSet(variable) ? qEnvironmentVariable(variable)
                                                                : QStringLiteral(MOSSLANTERN_UPDATE_FEED);
    return QUrl(address, QUrl::StrictMode);
}

QString stateFile()
{
    return QDir(QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation)).filePath(u"state.ini"_s);
}

StartOptions readOptions()
{
    QCommandLineParser parser;
    parser.setApplicationDescription(u"Makes text-on-image slideshows."_s);
    parser.addHelpOption();
    parser.addVersionOption();
    const QCommandLineOption library(u"library"_s, u"Keep records and pictures in this folder."_s,
                                     u"folder"_s);
    QCommandLineOption show(u"show"_s, u"Open a sheet (%1 or %2)."_s.arg(contentLibrary, slideshowEditor),
                            u"name"_s);
    show.setFlags(QCommandLineOption::HiddenFromHelp);
    parser.addOptions({library, show});
    parser.process(QCoreApplication::arguments());
    if (const QStringList surplus = parser.positionalArguments(); !surplus.isEmpty()) {
        std::fprintf(stderr, "There is no argument \"%s\".\n", qUtf8Printable(surplus.constFirst()));
        std::exit(EXIT_FAILURE);
    }
    const QString shown = parser.value(show);
    if (parser.isSet(show) && shown != contentLibrary && shown != slideshowEditor) {
        std::fprintf(stderr, "There is no sheet of the name \"%s\".\n", qUtf8Printable(shown));
        std::exit(EXIT_FAILURE);
    }
    return {.location = parser.isSet(library) ? LibraryLocation::inFolder(parser.value(library))
                                              : LibraryLocation::standard(),
            .stateFile = stateFile(),
            .updateFeed = updateFeed(),
            .showsContentLibrary = shown == contentLibrary,
            .showsSlideshowEditor = shown == slideshowEditor};
}

} // namespace

int main(int argc, char **argv)
{
    // A file that may not grow is an error like a full disk, and not the end of the program.
    std::signal(SIGXFSZ, SIG_IGN);
    QQuickWindow::setTextRenderType(QQuickWindow::NativeTextRendering);
    setApplicationIdentity();
    QGuiApplication::setDesktopFileName(u"mosslantern"_s);
    const QApplication application(argc, argv);
    MosslanternApp app(readOptions());
    switch (app.start()) {
    case StartOutcome::shown: {
        const int code = QApplication::exec();
        // A window that only told of a failure is not the main one.
        return app.window() ? code : EXIT_FAILURE;
    }
    case StartOutcome::raisedOther:
        return EXIT_SUCCESS;
    case StartOutcome::failed:
        return EXIT_FAILURE;
    }
    Q_UNREACHABLE();
}
