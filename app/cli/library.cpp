#include "app/cli/library.h"

#include "app/cli/command.h"
#include "app/cli/output.h"

#include <QtCore/QFile>

namespace mosslantern {

using namespace Qt::StringLiterals;

LibraryLocation libraryLocation(const Arguments &arguments)
{
    const std::optional<QString> folder = arguments.value(libraryOption.name);
    return folder ? LibraryLocation::inFolder(*folder) : LibraryLocation::standard();
}

Result<std::unique_ptr<Store>> openOrMakeLibrary(const Arguments &arguments)
{
    return Store::open(libraryLocation(arguments));
}

Result<std::unique_ptr<Store>> openLibrary(const Arguments &arguments)
{
    const LibraryLocation location = libraryLocation(arguments);
    if (arguments.has(libraryOption.name) && !QFile::exists(location.storeFile()))
        return fail(u"There is no library in “%1”."_s.arg(*arguments.value(libraryOption.name)));
    return Store::open(location);
}

bool saveLibrary(Store &store)
{
    const Result<> saved = store.flush();
    if (!saved)
        report(saved.error().message);
    return saved.has_value();
}

} // namespace mosslantern
