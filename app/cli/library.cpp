#include "app/cli/library.h"

#include "app/cli/command.h"
#include "app/cli/output.h"

#include <QtCore/QFile>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

Result<std::unique_ptr<Store>> changeable(Result<std::unique_ptr<Store>> opened)
{
    if (opened && !(*opened)->readOnlyReason().isEmpty())
        return fail(u"The library “%1” cannot be changed: %2."_s.arg((*opened)->location().storeFile(),
                                                                     (*opened)->readOnlyReason()));
    // While the command works, so that its first save has not to wait for the check.
    if (opened)
        (*opened)->beginUpkeep();
    return opened;
}

} // namespace

LibraryLocation libraryLocation(const Arguments &arguments)
{
    const std::optional<QString> folder = arguments.value(libraryOption.name);
    return folder ? LibraryLocation::inFolder(*folder) : LibraryLocation::standard();
}

Result<std::unique_ptr<Store>> openOrMakeLibrary(const Arguments &arguments)
{
    return changeable(Store::open(libraryLocation(arguments)));
}

Result<std::unique_ptr<Store>> openLibraryToChange(const Arguments &arguments)
{
    return changeable(openLibrary(arguments));
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
