#include "app/cli/commands.h"
#include "app/cli/library.h"
#include "app/cli/output.h"
#include "model/library_recovery.h"

#include <QtCore/QFileInfo>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

constexpr OptionSpec useCopyOption{"use-copy"_L1, {}, "take the newest whole copy in its place"_L1};
constexpr OptionSpec rescueOption{"rescue"_L1, {}, "take all that can be read of it in its place"_L1};

int listCopies(const LibraryLocation &location)
{
    for (const LibraryCopy &copy : copiesOf(location))
        writeRow({copy.day.toString(Qt::ISODate), copy.file});
    return failed;
}

Result<Recovery> recoverBy(const Arguments &arguments, const LibraryLocation &location)
{
    if (arguments.has(rescueOption.name))
        return rescueLibrary(location);
    const std::optional<LibraryCopy> copy = newestWholeCopy(location);
    return copy ? useCopy(location, *copy) : fail(u"There is no whole copy of the library."_s);
}

int recover(const Arguments &arguments)
{
    const bool usesCopy = arguments.has(useCopyOption.name);
    const bool rescues = arguments.has(rescueOption.name);
    if (usesCopy && rescues)
        return wrongUsage(u"--use-copy and --rescue exclude each other");
    const LibraryLocation location = libraryLocation(arguments);
    if (!QFileInfo::exists(location.storeFile()))
        return failedWith({u"There is no library “%1”."_s.arg(location.storeFile())});
    const Result<> checked = checkLibrary(location);
    if (checked)
        return done;
    report(checked.error().message);
    // What is no library, or is in use, is not to be replaced.
    if (checked.error().kind != ErrorKind::damagedLibrary)
        return failed;
    if (!usesCopy && !rescues)
        return listCopies(location);

    const Result<Recovery> recovery = recoverBy(arguments, location);
    if (!recovery)
        return failedWith(recovery.error());
    writeRow({QString::number(recovery->records), QString::number(recovery->lost), recovery->damagedFile});
    if (recovery->isDoubtful)
        report(u"Some records may not be as they were saved.");
    return done;
}

} // namespace

std::vector<Command> recoverCommands()
{
    return {{
        .name = "recover"_L1,
        .usage = "[--use-copy | --rescue]"_L1,
        .summary = "check the library, and replace a damaged one"_L1,
        .details =
            "Checks the whole library and says what is wrong with it. Of one that is damaged, prints day and "
            "file of each copy that was made of it.\n\nWith --use-copy or --rescue, a damaged library is "
            "replaced: by its newest whole copy, or by a new one with all that can be read of it. The "
            "damaged "
            "file gets another name beside it and stays as it is. Prints how many records the new library "
            "has, "
            "how many are known to be lost, and the name of the damaged file."_L1,
        .options = {useCopyOption, rescueOption},
        .run = recover,
    }};
}

} // namespace mosslantern
