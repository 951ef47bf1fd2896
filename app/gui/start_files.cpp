#include "app/gui/start_files.h"

#include "ui/common/interface_fonts.h"

#include <QtCore/QThread>

namespace mosslantern {

std::future<StartFiles> readStartFiles(const LibraryLocation &location)
{
    return std::async(std::launch::async, [location, caller = QThread::currentThread()] {
        StartFiles files{.fonts = {}, .store = Store::open(location)};
        if (files.store)
            (*files.store)->moveToThread(caller);
        files.fonts = registerInterfaceFonts();
        return files;
    });
}

} // namespace mosslantern
