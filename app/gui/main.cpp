#include "app/gui/mosslantern_app.h"
#include "app/identity.h"

#include <QtCore/QCommandLineParser>
#include <QtCore/QDir>
#include <QtCore/QStandardPaths>
#include <QtGui/QIcon>
#include <QtWidgets/QApplication>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <vector>

using namespace mosslantern;
using namespace Qt::StringLiterals;

namespace {

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

[[noreturn]] void refuse(const QString &reason)
{
    std::fprintf(stderr, "%s\n", qUtf8Printable(reason));
    std::exit(EXIT_FAILURE);
}

/// The absolute paths of files and folders that are named by paths or, as some file managers do, by URLs.
QStringList pictures(const QStringList &arguments)
{
    QStringList paths;
    for (const QString &argument : arguments) {
        const QFileInfo file(argument.startsWith("file:"_L1) ? QUrl(argument).toLocalFile() : argument);
        if (!file.exists())
            refuse(u"There is no file or folder \"%1\"."_s.arg(argument));
        paths.append(file.absoluteFilePath());
    }
    return paths;
}

StartOptions readOptions()
{
    QCommandLineParser parser;
    parser.setApplicationDescription(u"Makes text-on-image slideshows."_s);
    parser.addHelpOption();
    parser.addVersionOption();
    const QCommandLineOption library(u"library"_s, u"Keep records and pictures in this folder."_s,
                                     u"folder"_s);
    QStringList screens;
    for (const Destination &destination : destinations)
        screens.append(destination.name);
    const QCommandLineOption screen(u"screen"_s, u"Begin with this screen: %1."_s.arg(screens.join(u", "_s)),
                                    u"name"_s);
    parser.addOptions({library, screen});
    parser.addPositionalArgument(
        u"pictures"_s, u"Files to import, and folders whose pictures are imported."_s, u"[pictures...]"_s);
    parser.process(QCoreApplication::arguments());
    const QString destination = parser.value(screen);
    if (parser.isSet(screen) && !screens.contains(destination))
        refuse(u"There is no screen of the name \"%1\"."_s.arg(destination));
    return {.location = parser.isSet(library) ? LibraryLocation::inFolder(parser.value(library))
                                              : LibraryLocation::standard(),
            .stateFile = stateFile(),
            .updateFeed = updateFeed(),
            .request = {.pictures = pictures(parser.positionalArguments()), .destination = destination}};
}

/// Ends the program when the command line only asks for what needs no display.
void answerWithoutDisplay(int argc, char **argv)
{
    const std::vector<std::string_view> arguments(argv + 1, argv + std::max(argc, 1));
    for (const auto *const question : {"-h", "--help", "-v", "--version"}) {
        if (std::ranges::find(arguments, question) == arguments.end())
            continue;
        const QCoreApplication application(argc, argv);
        static_cast<void>(readOptions());
    }
}

QIcon windowIcon()
{
    QIcon icon;
    for (const QString &file : QDir(u":/mosslantern/icons"_s).entryList())
        icon.addFile(u":/mosslantern/icons/"_s + file);
    return icon;
}

} // namespace

int main(int argc, char **argv)
{
    // A file that may not grow is an error like a full disk, and not the end of the program.
    std::signal(SIGXFSZ, SIG_IGN);
    QQuickWindow::setTextRenderType(QQuickWindow::NativeTextRendering);
    setApplicationIdentity();
    answerWithoutDisplay(argc, argv);
    QGuiApplication::setDesktopFileName(u"mosslantern"_s);
    const QApplication application(argc, argv);
    QGuiApplication::setWindowIcon(windowIcon());
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
