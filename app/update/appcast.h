#pragma once

#include "model/error.h"

#include <QtCore/QList>
#include <QtCore/QUrl>

#include <optional>

namespace mosslantern {

/// One release that an appcast announces.
struct AppcastItem
{
    QString version;      // what is compared
    QString shownVersion; // what people read
    QString notes;        // plain text; empty when there are none
    QUrl notesPage;       // an https address of more about the release; empty when there is none
    QUrl downloadPage;    // an https address

    friend bool operator==(const AppcastItem &, const AppcastItem &) = default;
};

/// The releases for this system in an appcast: an RSS 2.0 feed with elements and attributes of the namespace
/// "http://www.andymatuschak.org/xml-namespaces/sparkle". The version stands in the element or in the
/// enclosure; the download page is the item's link, else the enclosure's address. Elements of other
/// namespaces are passed over. Items without a version or an https address, of a channel, or for other
/// systems are left out, and so are those whose version has more than 32 characters. Of notes, the first 64
/// Ki characters count. May be called from any thread.
Result<QList<AppcastItem>> parseAppcast(const QByteArray &xml);

/// The newest of the releases, if it is newer than `version`.
std::optional<AppcastItem> newestUpdate(const QList<AppcastItem> &releases, const QString &version);

} // namespace mosslantern
