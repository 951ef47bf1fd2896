#include "model/content_template.h"
#include "model/slideshow.h"
#include "model/store.h"
#include "tests/fuzz/target.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>

using namespace mosslantern;
using namespace Qt::StringLiterals;

namespace {

QByteArray contents(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Writes to the library as the program would.
void use(Store &store)
{
    store.insert(std::make_unique<ContentTemplate>(u"added"_s, u"text"_s));
    const auto slideshows = store.all<Slideshow>();
    if (!slideshows.empty())
        store.remove(slideshows.front());
}

} // namespace

/// The bytes are a library's file.
void mosslantern::tryBytes(QByteArrayView bytes)
{
    const QTemporaryDir folder;
    const auto location = LibraryLocation::inFolder(folder.path());
    QDir().mkpath(QFileInfo(location.storeFile()).path());
    {
        QFile file(location.storeFile());
        expect(file.open(QIODevice::WriteOnly) && file.write(bytes.data(), bytes.size()) == bytes.size(),
               "there is room for the file");
    }
    size_t had = 0;
    {
        const auto store = Store::open(location);
        if (!store) {
            expect(!store.error().message.isEmpty(), "a refusal has a reason");
            expect(contents(location.storeFile()) == bytes, "what is refused stays as it is");
            return;
        }
        had = (*store)->all<ContentTemplate>().size();
        use(**store);
    }
    const auto again = Store::open(location);
    if (again)
        expect((*again)->all<ContentTemplate>().size() <= had + 1, "nothing but what was added");
}
