#include "app/gui/mosslantern_app.h"
#include "app/identity.h"

#include <QtCore/QCommandLineParser>
#include <QtCore/QDir>
#include <QtCore/QStandardPaths>
#include <QtGui/QPalette>
#include <QtWidgets/QApplication>

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

/// The panels that Qt draws itself are to be as dark as the window.
QPalette darkPalette()
{
    QPalette palette(QColor(0x2a2f31), QColor(0x1b1e1f));
    palette.setColor(QPalette::Base, QColor(0x121415));
    palette.setColor(QPalette::Highlight, QColor(0x3f82f0));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    return palette;
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
    return {.location = parser.isSet(library) ? LibraryLocation::inFolder(parser.value(library))
                                              : LibraryLocation::standard(),
            .stateFile = stateFile(),
            .updateFeed = updateFeed(),
            .showsContentLibrary = parser.value(show) == contentLibrary,
            .showsSlideshowEditor = parser.value(show) == slideshowEditor};
}

} // namespace

int main(int argc, char **argv)
{
    QQuickWindow::setTextRenderType(QQuickWindow::NativeTextRendering);
    setApplicationIdentity();
    QGuiApplication::setDesktopFileName(u"mosslantern"_s);
    const QApplication application(argc, argv);
    QApplication::setPalette(darkPalette());
    MosslanternApp app(readOptions());
    return app.start() ? QApplication::exec() : 0;
}
