#include "app/update/appcast.h"
#include "tests/fuzz/target.h"

using namespace mosslantern;
using namespace Qt::StringLiterals;

void mosslantern::tryBytes(QByteArrayView bytes)
{
    const auto releases = parseAppcast(bytes.toByteArray());
    if (!releases)
        return;
    const auto isSafe = [](const QUrl &page) { return page.scheme() == "https"_L1; };
    for (const AppcastItem &item : *releases) {
        expect(!item.version.isEmpty() && item.version.size() <= 32 && item.shownVersion.size() <= 32,
               "versions are bounded");
        expect(item.notes.size() <= 64 << 10, "notes are bounded");
        expect(isSafe(item.downloadPage) && (item.notesPage.isEmpty() || isSafe(item.notesPage)),
               "pages are safe");
    }
    const auto newest = newestUpdate(*releases, u"1.0"_s);
    expect(!newest || !newestUpdate({*newest}, newest->version), "nothing is newer than itself");
}
