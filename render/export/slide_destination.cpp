#include "render/export/slide_destination.h"

#include "model/folder.h"
#include "model/partial_file.h"
#include "render/export/slide_file.h"

namespace mosslantern {

Result<> SlideDestination::writeBeside(const QString &path, const QByteArray &bytes)
{
    EncodedSlide file;
    file.file = bytes;
    return write(path, file);
}

Result<> FolderDestination::prepareFolder(const QString &path)
{
    Result<> made = makeFolder(path);
    if (made)
        removeAbandonedFiles(path);
    return made;
}

Result<> FolderDestination::write(const QString &path, const EncodedSlide &slide)
{
    return writeSlideFile(path, slide);
}

} // namespace mosslantern
