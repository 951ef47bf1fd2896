#include "app/gui/start_files.h"

#include "ui/common/interface_fonts.h"

#include <QtCore/QThread>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

Result<std::unique_ptr<Store>> openStore(const LibraryLocation &location)
{
    if (location.assetFolder().isEmpty())
        return fail(u"Mosslantern keeps its pictures in your documents folder, but this system names none. "
                    "Set XDG_DOCUMENTS_DIR in ~/.config/user-dirs.dirs."_s);
    return Store::open(location);
}

} // namespace

std::future<StartFiles> readStartFiles(const LibraryLocation &location)
{
    return std::async(std::launch::async, [location, caller = QThread::currentThread()] {
        StartFiles files{.fonts = {}, .store = openStore(location)};
        if (files.store)
            (*files.store)->moveToThread(caller);
        files.fonts = registerInterfaceFonts();
        return files;
    });
}

} // namespace mosslantern
