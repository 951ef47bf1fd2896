#pragma once

#include "app/gui/app_screen.h"

#include <QtCore/QByteArray>
#include <QtCore/QStringList>

class QDataStream;

namespace mosslantern {

/// A place of the window that a start may ask for.
struct Destination
{
    QLatin1StringView name; // on the command line
    AppScreen screen;
    int tab; // of that screen, -1 where it has none
};

inline constexpr std::array destinations{
    Destination{QLatin1StringView("assets"), AppScreen::assets, -1},
    Destination{QLatin1StringView("collections"), AppScreen::collections, -1},
    Destination{QLatin1StringView("create"), AppScreen::slideshows, 0},
    Destination{QLatin1StringView("history"), AppScreen::slideshows, 1}};

/// What a start asks of the window, its own or that of the process that has the library open.
struct WindowRequest
{
    QStringList pictures = {}; // to import: absolute paths of files and of folders of pictures
    QString destination = {};  // the name of one; empty to stay where the window is
    /// The right to take the foreground, which a Wayland compositor gives to the process that starts.
    QByteArray activationToken = {};
};

QDataStream &operator<<(QDataStream &stream, const WindowRequest &request);
QDataStream &operator>>(QDataStream &stream, WindowRequest &request);

} // namespace mosslantern
